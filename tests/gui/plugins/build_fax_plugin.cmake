# Installs the header to a fresh folder, and builds and installs the example plug-in with it.
cmake_policy(VERSION 3.25)
file(REMOVE_RECURSE ${FOLDER})

function(run)
    execute_process(COMMAND ${CMAKE_COMMAND} ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()
run(--install ${BUILD} --component Development --prefix ${FOLDER}/program)
# A copy, so that nothing of the program's sources is found beside it.
file(COPY ${SOURCE} DESTINATION ${FOLDER}/source)
get_filename_component(name ${SOURCE} NAME)
run(-S ${FOLDER}/source/${name} -B ${FOLDER}/build -G ${GENERATOR}
    -DCMAKE_PREFIX_PATH=${FOLDER}/program -DCMAKE_CXX_COMPILER=${COMPILER}
    -DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER} -DCMAKE_CXX_FLAGS=-Werror
    -DCMAKE_BUILD_TYPE=RelWithDebInfo)
run(--build ${FOLDER}/build)
run(--install ${FOLDER}/build --prefix ${FOLDER}/installed)
