# -DVESK_SANITIZE=address,undefined instruments every target.
set(VESK_SANITIZE "" CACHE STRING "Sanitizers to build with, separated by commas")
if(VESK_SANITIZE)
    add_compile_options(-fsanitize=${VESK_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${VESK_SANITIZE})
    # What calls it brings LibraryLeaks.cpp along.
    add_link_options(-Wl,--wrap=cupsMarkOptions)
elseif(CMAKE_BUILD_TYPE MATCHES "Rel")
    add_compile_options(-fstack-protector-strong -fstack-clash-protection -fcf-protection)
    add_compile_definitions(_FORTIFY_SOURCE=2 _GLIBCXX_ASSERTIONS)
    add_link_options(-Wl,-z,relro -Wl,-z,noexecstack)
endif()
