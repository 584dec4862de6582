# One interface target holds the warnings that every target of the project is built with.
option(VESK_WERROR "Treat warnings as errors" OFF)
add_library(vesk_warnings INTERFACE)
target_compile_options(vesk_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Wcast-align
    -Woverloaded-virtual -Wconversion -Wformat=2
    # Follows values through the optimiser: with less of it, it warns of the toolkit's own headers.
    $<$<NOT:$<BOOL:$<TARGET_PROPERTY:VESK_IS_TEST>>>:-Wnull-dereference>
    $<$<BOOL:${VESK_WERROR}>:-Werror>)
target_compile_definitions(vesk_warnings INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH)
