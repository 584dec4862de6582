# cmake -DBUILD=folder -DTREE=folder -P check_install.cmake
# Installs the program into TREE as a user does and looks at what is there.

function(install_tree)
    execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${TREE} ${ARGN}
        OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
endfunction()

function(expect_programs)
    file(GLOB programs RELATIVE ${TREE}/bin ${TREE}/bin/*)
    if(NOT programs STREQUAL "${ARGN}")
        message(FATAL_ERROR "the programs are ${programs} instead of ${ARGN}")
    endif()
endfunction()

file(REMOVE_RECURSE ${TREE})
install_tree()
expect_programs(vesk)
foreach(name lib/libvesk_core.so lib/libvesk_dialogs.so share/OEM.ini share/tr/printdialog_pt_BR.qm plugins)
    if(NOT EXISTS ${TREE}/${name})
        message(FATAL_ERROR "there is no ${name}")
    endif()
endforeach()

# The help, every file of it.
execute_process(COMMAND ${CMAKE_CURRENT_LIST_DIR}/../help/check-pages ${TREE}/share/help
    COMMAND_ERROR_IS_FATAL ANY)

# Only who asks for it gets the program for worlds without namespaces.
install_tree(--component relocated)
expect_programs(vesk vesk-relocated)
file(REMOVE_RECURSE ${TREE})
