# Runs cmake/CheckLayers.cmake on small trees, each right but for one line.
#   cmake -D ROOT=PROJECT -D DIRECTORY=SCRATCH -P CheckLayersTest.cmake
cmake_minimum_required(VERSION 3.25)

set(failures 0)

# Writes the tree, puts `line` at the end of `file` and expects the check to say `expected`, or to be content if that
# is empty. Further arguments go to the check.
function(expect file line expected)
  file(REMOVE_RECURSE ${DIRECTORY})
  file(WRITE ${DIRECTORY}/Vellum/Vellum_A.h "#pragma once\n")
  file(WRITE ${DIRECTORY}/Cpp/Cpp_CharClasses.h "#include <vector>\n")
  file(WRITE ${DIRECTORY}/Cpp/Cpp_Lexer.h "#include \"Vellum_A.h\"\n")
  file(WRITE ${DIRECTORY}/Brevis/src/first/text/T.h "// Text.\n\n#include <string>\n#include \"Vellum_A.h\"\n")
  file(WRITE ${DIRECTORY}/Brevis/src/first/expr/E.h "#include \"first/text/T.h\"\n")
  file(WRITE ${DIRECTORY}/Brevis/src/first/format/F.cpp "#include \"first/expr/E.h\"\n")
  file(WRITE ${DIRECTORY}/Brevis/src/first/wrap/W.h "#include \"first/expr/E.h\"\n")
  file(WRITE ${DIRECTORY}/Brevis/src/guard/G.h "#include \"Cpp_CharClasses.h\"\n")
  file(WRITE ${DIRECTORY}/Brevis/src/first/First.h "#include \"first/wrap/W.h\"\n#include \"guard/G.h\"\n")
  file(WRITE ${DIRECTORY}/Brevis/src/second/Second.h "#include \"guard/G.h\"\n")
  file(WRITE ${DIRECTORY}/Brevis/src/Pipeline.h "#include \"first/First.h\"\n#include \"second/Second.h\"\n")
  file(WRITE ${DIRECTORY}/Console/Console_Main.cpp "#include \"Pipeline.h\"\n")
  file(APPEND ${DIRECTORY}/${file} "${line}\n")
  execute_process(COMMAND ${CMAKE_COMMAND} -D ROOT=${DIRECTORY} ${ARGN} -P ${ROOT}/cmake/CheckLayers.cmake
                  RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  string(FIND "${output}" "${expected}" at)
  if((expected AND (result EQUAL 0 OR at EQUAL -1)) OR (NOT expected AND NOT result EQUAL 0))
    message("${file}: ${line}\n  expected: ${expected}\n  result ${result}: ${output}")
    math(EXPR failures "${failures} + 1")
  endif()
  set(failures ${failures} PARENT_SCOPE)
endfunction()

set(no_exceptions ${DIRECTORY}.no.cmake)
file(WRITE ${no_exceptions} "include(${ROOT}/cmake/Layers.cmake)\nset(exceptions \"\")\n")
set(one_exception ${DIRECTORY}.one.cmake)
file(WRITE ${one_exception}
     "include(${ROOT}/cmake/Layers.cmake)\nset(exceptions \"Brevis/src/first/text: Brevis/src/first/expr/E.h\")\n")
set(plain -D TABLE=${no_exceptions})

expect(Console/Console_Main.cpp "#include \"first/expr/E.h\"" "" ${plain})
expect(Brevis/src/first/text/T.h "#include \"first/expr/E.h\"" "Brevis/src/first/text/T.h:5: error: Brevis/src/first/text may not include" ${plain})
expect(Brevis/src/first/text/T.h "  #  include <first/expr/E.h>" "Brevis/src/first/text/T.h:5: error: " ${plain})
expect(Brevis/src/first/text/T.h "#include \"../expr/E.h\"" "Brevis/src/first/text/T.h:5: error: " ${plain})
expect(Brevis/src/first/wrap/W.h "#include \"Pipeline.h\"" "may not include Brevis/src/Pipeline.h" ${plain})
expect(Brevis/src/first/format/F.cpp "#include \"guard/G.h\"" "may not include Brevis/src/guard/G.h" ${plain})
expect(Brevis/src/second/Second.h "#include \"first/expr/E.h\"" "may not include Brevis/src/first/expr/E.h" ${plain})
expect(Brevis/src/Pipeline.h "#include \"first/wrap/W.h\"" "may not include Brevis/src/first/wrap/W.h" ${plain})
expect(Brevis/src/guard/G.h "#include \"Cpp_Lexer.h\"" "Brevis/src/guard/G.h:2: error: " ${plain})
expect(Vellum/Vellum_A.h "#include \"Cpp_Lexer.h\"" "Vellum/Vellum_A.h:2: error: " ${plain})
expect(Cpp/Cpp_Lexer.h "#include \"Nowhere.h\"" "There is no header Nowhere.h" ${plain})
expect(Brevis/src/new/N.h "#pragma once" "The folder Brevis/src/new is missing" ${plain})
expect(Brevis/src/first/text/T.h "#include \"first/expr/E.h\"" "" -D TABLE=${one_exception})
expect(Brevis/src/first/text/T.h "" "is no longer needed" -D TABLE=${one_exception})

if(failures GREATER 0)
  message(FATAL_ERROR "${failures} cases failed.")
endif()
