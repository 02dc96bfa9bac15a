# Fails when a source includes a header of a folder above its own.
#   cmake -D SOURCE_DIR=<root> -P check_includes.cmake

set(may_frame frame)
set(may_store store frame)
set(may_banks banks store frame)
set(may_purecomp purecomp banks store frame)
set(may_maint maint purecomp banks store frame)
set(may_lists lists maint purecomp banks store frame)
set(may_xml xml maint purecomp banks store frame)
set(folders frame store banks purecomp maint lists xml)
set(outsiders examples hosts)  # see the public headers only
set(bad "")

foreach(folder ${folders} ${outsiders})
  file(GLOB_RECURSE sources ${SOURCE_DIR}/${folder}/*.cpp ${SOURCE_DIR}/${folder}/*.h)
  foreach(source ${sources})
    file(STRINGS ${source} includes REGEX "^#include \"[a-z]+/")
    foreach(line ${includes})
      string(REGEX REPLACE "^#include \"([a-z]+)/.*" "\\1" target ${line})
      list(FIND folders ${target} known)
      if(known GREATER -1)
        list(FIND may_${folder} ${target} allowed)
        if(allowed EQUAL -1)
          string(APPEND bad "  ${source}: ${line}\n")
        endif()
      endif()
    endforeach()
  endforeach()
endforeach()

if(bad)
  message(FATAL_ERROR "Includes that point upward:\n${bad}")
endif()
