# Installs the build into a directory of its own, moves that, builds the example against it, with the CMake package and
# with pkg-config, and compares what the example writes with what the installed program does.
#   cmake -D BUILD=TREE -D EXAMPLES=DIRECTORY -D LIBDIR=NAME -D DIRECTORY=SCRATCH -D COMPILER=PROGRAM -P ...
cmake_minimum_required(VERSION 3.25)

set(input ${EXAMPLES}/inventory.cpp)
set(prefix ${DIRECTORY}/prefix)

# `output` becomes what the command writes.
function(run)
  execute_process(COMMAND ${ARGV} WORKING_DIRECTORY ${DIRECTORY} INPUT_FILE ${input} OUTPUT_VARIABLE output
                  OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  return(PROPAGATE output)
endfunction()

function(expect_formatted)
  run(${ARGN})
  if(NOT output STREQUAL wanted)
    message(FATAL_ERROR "${ARGN} writes:\n${output}\nwanted:\n${wanted}")
  endif()
endfunction()

file(REMOVE_RECURSE ${DIRECTORY})
file(MAKE_DIRECTORY ${DIRECTORY})
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${DIRECTORY}/first)
file(RENAME ${DIRECTORY}/first ${prefix})

foreach(page man/man1/corvane-format.1 man/man1/corvane-inspect.1 man/man1/corvane-infer.1 bash-completion/completions/corvane-format
        zsh/vendor-completions/_corvane-inspect fish/vendor_completions.d/corvane-format.fish doc/corvane/copyright)
  if(NOT EXISTS ${prefix}/share/${page})
    message(FATAL_ERROR "${page} is not installed.")
  endif()
endforeach()

# The program reads the scheme that stands beside it: given the example's indent, it formats as the example does.
run(${prefix}/bin/corvane-format)
set(plain "${output}")
set(scheme ${prefix}/share/corvane/schemes/Corvane.fsc)
file(READ ${scheme} text)
string(REGEX REPLACE "INDENT_FN_CONTENT \"[^\"]*\"" "INDENT_FN_CONTENT \"  \"" text "${text}")
file(WRITE ${scheme} "${text}")
run(${prefix}/bin/corvane-format)
set(wanted "${output}")
if(wanted STREQUAL plain)
  message(FATAL_ERROR "${prefix}/bin/corvane-format doesn't read ${scheme}.")
endif()

run(${CMAKE_COMMAND} -S ${EXAMPLES}/embed -B ${DIRECTORY}/example -D CMAKE_PREFIX_PATH=${prefix}
    -D CMAKE_CXX_COMPILER=${COMPILER})
run(${CMAKE_COMMAND} --build ${DIRECTORY}/example)
expect_formatted(${DIRECTORY}/example/embed)

find_program(pkg_config NAMES pkg-config pkgconf)
if(NOT pkg_config)
  message("No pkg-config: its part is left out.")
  return()
endif()
set(ENV{PKG_CONFIG_PATH} ${prefix}/${LIBDIR}/pkgconfig)
run(${pkg_config} --cflags --libs corvane)
separate_arguments(flags UNIX_COMMAND "${output}")
run(${COMPILER} ${EXAMPLES}/embed/main.cpp -o ${DIRECTORY}/by-pkg-config ${flags} -Wl,-rpath,${prefix}/${LIBDIR})
expect_formatted(${DIRECTORY}/by-pkg-config)
