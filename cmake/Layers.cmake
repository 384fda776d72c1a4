# Which folder may include from which: the folder, a colon, and the folders or single headers that it may see besides
# itself. What is in no list here may not be included; the tests and the benchmarks are free.
set(front Vellum Trn Cpp)
set(engine Brevis/src)
set(engine_folders "")
foreach(folder scheme guard run first first/text first/expr first/align first/format first/wrap second infer)
  get_filename_component(name ${folder} NAME)
  set(${name} ${engine}/${folder})
  list(APPEND engine_folders ${engine}/${folder})
endforeach()
list(JOIN front " " front)
list(JOIN engine_folders " " engine_folders)

set(host BrevisConfigure)
foreach(folder disk files projects batch store settings editor inference help)
  list(APPEND host_folders ${host}/${folder})
endforeach()
list(JOIN host_folders " " host_folders)

set(layers
  "Vellum:"
  "Trn: Vellum"
  "Cpp: Vellum Trn"
  "${scheme}: ${front}"
  "${guard}: Trn Cpp/Cpp_CharClasses.h"
  "${run}: ${front} ${scheme}"
  "${text}: ${front} ${scheme}"
  "${expr}: ${front} ${scheme} ${text}"
  "${align}: ${front} ${scheme} ${text} ${expr}"
  "${format}: ${front} ${scheme} ${text} ${expr} ${align}"
  "${wrap}: ${front} ${scheme} ${text} ${expr}"
  "${first}: ${front} ${scheme} ${guard} ${run} ${text} ${expr} ${align} ${format} ${wrap}"
  "${second}: ${front} ${scheme} ${guard} ${run}"
  "${infer}: ${front} ${scheme} ${run} ${second}"
  "${engine}: ${front} ${scheme} ${run} ${first} ${second}"
  "include:"
  "include/corvane:"
  "Embed: include/corvane Trn ${engine} ${scheme}"
  "${host}/disk:"
  "${host}: ${front} ${engine} ${engine_folders} ${host}/disk"
  "${host}/files: ${front} ${host}"
  "${host}/projects: ${front} ${host} ${host}/files"
  "${host}/batch: ${front} ${engine} ${scheme} ${host} ${host}/disk ${host}/files ${host}/projects"
  "${host}/store: ${front} ${scheme} ${host}"
  "${host}/settings: ${front} ${scheme} ${host}"
  "${host}/editor: ${front} ${engine} ${scheme} ${host} ${host}/store ${host}/settings"
  "${host}/inference: ${front} ${engine} ${engine_folders} ${host}"
  "${host}/help: ${scheme}"
  "${host}/qt: ${front} ${engine} ${engine_folders} ${host} ${host_folders}"
  "Console: ${front} ${engine} ${engine_folders} ${host} ${host_folders}")

# Arrows that the table forbids and that are still there: a folder, a colon, a header. One that is no longer needed
# fails the check.
set(exceptions "")
