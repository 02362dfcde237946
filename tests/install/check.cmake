# Installs into the build folder and builds an application outside the tree, once by find_package and once by pkg-config.
#   cmake -D BUILD= -D SOURCE= -D LIBDIR= -D DATADIR= -D CXX= -D FLAGS= -P check.cmake

set(work ${BUILD}/tests/install)
set(prefix ${work}/prefix)
set(expected "8352500\n")
file(REMOVE_RECURSE ${work}/prefix ${work}/by-cmake ${work}/by-pkg-config)

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result STREQUAL 0)
    list(JOIN ARGN " " command)
    message(FATAL_ERROR "${command}\nfailed (${result}):\n${output}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

function(expect_answer kind)
  if(NOT output STREQUAL expected)
    message(FATAL_ERROR "The application built by ${kind} said '${output}' and not '${expected}'")
  endif()
endfunction()

run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${prefix})

# What was built by find_package runs without further ado.
run(${CMAKE_COMMAND} -S ${SOURCE}/tests/install/consumer -B ${work}/by-cmake -G Ninja
  -D CMAKE_PREFIX_PATH=${prefix} -D CMAKE_CXX_COMPILER=${CXX} "-DCMAKE_CXX_FLAGS=${FLAGS}")
run(${CMAKE_COMMAND} --build ${work}/by-cmake)
run(${work}/by-cmake/consumer)
expect_answer(find_package)

# What pkg-config tells is enough to compile and link.
set(ENV{PKG_CONFIG_PATH} ${prefix}/${LIBDIR}/pkgconfig)
run(pkg-config --cflags --libs zelnor)
separate_arguments(told UNIX_COMMAND "${FLAGS} ${output}")
file(MAKE_DIRECTORY ${work}/by-pkg-config)
run(${CXX} -std=c++20 ${SOURCE}/tests/install/consumer/main.cpp -o ${work}/by-pkg-config/consumer ${told})
run(${CMAKE_COMMAND} -E env LD_LIBRARY_PATH=${prefix}/${LIBDIR} ${work}/by-pkg-config/consumer)
expect_answer(pkg-config)

# The schemas and the style sheet lie where the library looks for them.
file(GLOB schemas RELATIVE ${SOURCE}/xsd ${SOURCE}/xsd/*.xsd)
foreach(schema IN LISTS schemas)
  if(NOT EXISTS ${prefix}/${DATADIR}/zelnor/xsd/${schema})
    message(FATAL_ERROR "xsd/${schema} was not installed")
  endif()
endforeach()
if(NOT EXISTS ${prefix}/${DATADIR}/zelnor/log.xsl)
  message(FATAL_ERROR "log.xsl was not installed")
endif()
