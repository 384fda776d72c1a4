# Run by cpack on what it has staged: Debian wants manual pages and changelogs compressed, the same bytes each time.
set(staged ${CPACK_TEMPORARY_INSTALL_DIRECTORY})
file(GLOB_RECURSE pages ${staged}/*.1 ${staged}/changelog)
foreach(page IN LISTS pages)
  execute_process(COMMAND gzip -9nf ${page} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
