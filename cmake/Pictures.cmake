# The PNG files of the program's pictures, drawn from their SVG sources at 1x and 2x.
find_program(RSVG_CONVERT rsvg-convert REQUIRED)

# vesk_draw_picture(SOURCE.svg PICTURE.png ZOOM)
function(vesk_draw_picture source picture zoom)
    get_filename_component(folder ${picture} DIRECTORY)
    file(MAKE_DIRECTORY ${folder})
    add_custom_command(OUTPUT ${picture}
        COMMAND ${RSVG_CONVERT} --zoom ${zoom} --output ${picture} ${source}
        DEPENDS ${source} VERBATIM)
endfunction()

# vesk_add_pictures(TARGET PATH FOLDER [PATH FOLDER]...) compiles the pictures of FOLDER/svg into the
# target as :PATH/name.png and :PATH/name@2x.png. The resource has the name of the folder that the
# target lies in. The files lie in the same FOLDER of the build.
function(vesk_add_pictures target)
    set(listed "<RCC>\n")
    while(ARGN)
        list(POP_FRONT ARGN path folder)
        string(APPEND listed "<qresource prefix=\"${path}\">\n")
        file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/svg/*.svg)
        foreach(source ${sources})
            get_filename_component(name ${source} NAME_WE)
            set(picture ${CMAKE_CURRENT_BINARY_DIR}/${folder}/${name})
            vesk_draw_picture(${source} ${picture}.png 1)
            vesk_draw_picture(${source} ${picture}@2x.png 2)
            foreach(file ${name}.png ${name}@2x.png)
                string(APPEND listed "<file alias=\"${file}\">${folder}/${file}</file>\n")
            endforeach()
        endforeach()
        string(APPEND listed "</qresource>\n")
    endwhile()
    get_filename_component(resource ${CMAKE_CURRENT_SOURCE_DIR} NAME)
    set(list_file ${CMAKE_CURRENT_BINARY_DIR}/${resource}.qrc)
    file(CONFIGURE OUTPUT ${list_file} CONTENT "${listed}</RCC>\n" @ONLY)
    qt_add_resources(compiled ${list_file})
    target_sources(${target} PRIVATE ${compiled})
endfunction()
