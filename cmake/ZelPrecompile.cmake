# zel_precompile(<header> <targets>)
# Has gcc or clang parse a header, which includes the headers that most sources include, only once for
# all sources of the targets, which must have the same compile options. Every source still includes
# what it uses: other compilers do without, and so does a build with a compiler cache, which would
# have to be told to trust a precompiled header.
function(zel_precompile header first)
  file(REAL_PATH "${CMAKE_CXX_COMPILER}" compiler)
  if(NOT CMAKE_CXX_COMPILER_ID MATCHES "^(GNU|Clang)$" OR CMAKE_CONFIGURATION_TYPES
     OR CMAKE_CXX_COMPILER_LAUNCHER OR compiler MATCHES "cache" OR CMAKE_DISABLE_PRECOMPILE_HEADERS)
    return()
  endif()

  set(folder ${PROJECT_BINARY_DIR}/precompiled/${first})
  set(input ${folder}/precompiled.h)
  # gcc looks for its file wherever it finds the header. Clang looks only next to a name with a
  # folder, and must not find gcc's file there: its tools read compile_commands.json of gcc, too.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    set(output ${input}.gch)
    set(include "SHELL:-I${folder} -include precompiled.h")
  else()
    set(output ${input}.pch)
    set(include "SHELL:-include ${input}")
  endif()
  file(CONFIGURE OUTPUT ${input} CONTENT "#include \"${PROJECT_SOURCE_DIR}/${header}\"\n")

  # The options of the first target, apart from headers that are included before the source.
  string(TOUPPER "CMAKE_CXX_FLAGS_${CMAKE_BUILD_TYPE}" flags)
  separate_arguments(flags NATIVE_COMMAND "${CMAKE_CXX_FLAGS} ${${flags}}")
  get_target_property(standard ${first} CXX_STANDARD)
  get_target_property(independent ${first} POSITION_INDEPENDENT_CODE)
  if(independent)
    list(APPEND flags ${CMAKE_CXX_COMPILE_OPTIONS_PIC})
  endif()
  get_target_property(visibility ${first} CXX_VISIBILITY_PRESET)
  if(visibility)
    list(APPEND flags ${CMAKE_CXX_COMPILE_OPTIONS_VISIBILITY}${visibility})
  endif()
  get_target_property(inlines ${first} VISIBILITY_INLINES_HIDDEN)
  if(inlines)
    list(APPEND flags ${CMAKE_CXX_COMPILE_OPTIONS_VISIBILITY_INLINES_HIDDEN})
  endif()
  set(options $<FILTER:$<TARGET_PROPERTY:${first},COMPILE_OPTIONS>,EXCLUDE,^SHELL:>)
  set(definitions $<TARGET_PROPERTY:${first},COMPILE_DEFINITIONS>)
  set(folders $<TARGET_PROPERTY:${first},INCLUDE_DIRECTORIES>)
  add_custom_command(
    OUTPUT ${output}
    COMMAND ${CMAKE_CXX_COMPILER} ${flags} ${CMAKE_CXX${standard}_STANDARD_COMPILE_OPTION} ${options}
            "$<$<BOOL:${definitions}>:-D$<JOIN:${definitions},;-D>>"
            "$<$<BOOL:${folders}>:-I$<JOIN:${folders},;-I>>"
            -MD -MF ${output}.d -MT ${output} -x c++-header ${input} -o ${output}
    DEPENDS ${input} DEPFILE ${output}.d COMMAND_EXPAND_LISTS VERBATIM
    COMMENT "Precompiling ${header} for ${first}")
  add_custom_target(${first}_precompiled DEPENDS ${output})

  foreach(target ${first} ${ARGN})
    # Before all other headers: it is accepted only there.
    target_compile_options(${target} BEFORE PRIVATE ${include})
    target_compile_definitions(${target} PRIVATE ZEL_PRECOMPILED)  # for gcc12.h
    get_target_property(sources ${target} SOURCES)
    set_property(SOURCE ${sources} APPEND PROPERTY OBJECT_DEPENDS ${output})
    add_dependencies(${target} ${first}_precompiled)
  endforeach()
endfunction()
