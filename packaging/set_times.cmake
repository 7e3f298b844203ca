# Run by CPack when the packages' files stand ready. With SOURCE_DATE_EPOCH in
# the environment they all get that time, so that two builds of one state of
# the sources give the same packages.
if(DEFINED ENV{SOURCE_DATE_EPOCH})
  execute_process(
    COMMAND find ${CPACK_TEMPORARY_DIRECTORY} -exec touch -h -d @$ENV{SOURCE_DATE_EPOCH} {} +
    COMMAND_ERROR_IS_FATAL ANY)
endif()
