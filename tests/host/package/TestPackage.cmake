# Installs a build, moves the installed tree, builds a host against it with the CMake package and with pkg-config, and
# exports a model with each.
#
# cmake -D BUILD=... -D SCRATCH=... -D LIBDIR=... -D CXX=... -D FLAGS=... -D GENERATOR=... -D MAKE=... -P TestPackage.cmake

# run(COMMAND...): fails with what the command said.
function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        list(JOIN ARGN " " command)
        message(FATAL_ERROR "${command}\ngave ${result} and said:\n${output}")
    endif()
endfunction()

# expect_export(PROGRAM): the program writes the table's element, and finds the mapping document of the installed tree.
function(expect_export program)
    set(document "${SCRATCH}/out.xml")
    file(REMOVE "${document}")
    execute_process(
        COMMAND ${CMAKE_COMMAND} -E env --unset=LD_LIBRARY_PATH --unset=ZOR_BRIDGE_PATH "${program}" "${document}"
        COMMAND_ERROR_IS_FATAL ANY OUTPUT_VARIABLE mapping)
    if(NOT mapping STREQUAL "${moved}/${LIBDIR}/zor/bridges/ZORMicrosoftSqlServerMdsMdcDBMExport.xml")
        message(FATAL_ERROR "${program} found the mapping document \"${mapping}\"")
    endif()
    file(READ "${document}" text)
    if(NOT text MATCHES "<dbm:LogicalTable [^>]*name=\"Customer\".*</oim:Transfer>\n$")
        message(FATAL_ERROR "${program} wrote no complete document with the table:\n${text}")
    endif()
endfunction()

file(REMOVE_RECURSE "${SCRATCH}")
file(MAKE_DIRECTORY "${SCRATCH}")
run(${CMAKE_COMMAND} --install "${BUILD}" --prefix "${SCRATCH}/installed")
file(RENAME "${SCRATCH}/installed" "${SCRATCH}/moved")
set(moved "${SCRATCH}/moved")

run(${CMAKE_COMMAND} -S "${CMAKE_CURRENT_LIST_DIR}" -B "${SCRATCH}/with_cmake" -G "${GENERATOR}"
    -D "CMAKE_MAKE_PROGRAM=${MAKE}" -D "CMAKE_CXX_COMPILER=${CXX}" -D "CMAKE_CXX_FLAGS=${FLAGS}"
    -D "CMAKE_PREFIX_PATH=${moved}")
run(${CMAKE_COMMAND} --build "${SCRATCH}/with_cmake")
expect_export("${SCRATCH}/with_cmake/host")

find_program(pkg_config NAMES pkg-config REQUIRED)
set(ENV{PKG_CONFIG_PATH} "${moved}/${LIBDIR}/pkgconfig")
execute_process(COMMAND "${pkg_config}" --cflags --libs zor COMMAND_ERROR_IS_FATAL ANY
    OUTPUT_VARIABLE answer OUTPUT_STRIP_TRAILING_WHITESPACE)
separate_arguments(answer UNIX_COMMAND "${answer}")
separate_arguments(flags UNIX_COMMAND "${FLAGS}")
run("${CXX}" -std=c++20 ${flags} "${CMAKE_CURRENT_LIST_DIR}/main.cpp" -o "${SCRATCH}/host" ${answer}
    "-Wl,-rpath,${moved}/${LIBDIR}")
expect_export("${SCRATCH}/host")
file(REMOVE_RECURSE "${SCRATCH}")
