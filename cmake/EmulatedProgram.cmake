# zelka_startable(TARGET): a program that others start by its path, which is the folder of the target's file and the
# target's name. What this machine cannot run itself is started there by a script, under the emulator.
function(zelka_startable target)
  if(CMAKE_CROSSCOMPILING_EMULATOR)
    set_target_properties(${target} PROPERTIES SUFFIX .${ZELKA_PROCESSOR})
    list(JOIN CMAKE_CROSSCOMPILING_EMULATOR "' '" emulator)
    file(
      GENERATE
      OUTPUT $<TARGET_FILE_DIR:${target}>/${target}
      CONTENT "#!/bin/sh\nexec '${emulator}' '$<TARGET_FILE:${target}>' \"$@\"\n"
      FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
  endif()
endfunction()
