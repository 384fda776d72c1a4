# Writes the texts of the help into a source of C++: cmake -D HELP=help -D OUTPUT=file.cpp -P cmake/EmbedTexts.cmake
function(embed out pattern)
  file(GLOB files ${pattern})
  list(SORT files)
  set(table "")
  foreach(file IN LISTS files)
    get_filename_component(name ${file} NAME)
    file(READ ${file} text)
    string(APPEND table "    {\"${name}\", R\"help(${text})help\"},\n")
  endforeach()
  set(${out} "${table}" PARENT_SCOPE)
endfunction()

embed(pages ${HELP}/*.htm)
embed(properties ${HELP}/properties/*.txt)
file(READ ${HELP}/contents.txt contents)
file(WRITE ${OUTPUT} "// Written by cmake/EmbedTexts.cmake.
#include \"help/BrevisUI_HelpSources.h\"

namespace BrevisUI {

namespace {

constexpr HelpSource pages[] = {
${pages}};

constexpr HelpSource properties[] = {
${properties}};

}  // namespace

std::span<const HelpSource> helpPageSources() { return pages; }
std::span<const HelpSource> helpPropertySources() { return properties; }
std::string_view helpContentsSource() { return R\"help(${contents})help\"; }

}  // namespace BrevisUI
")
