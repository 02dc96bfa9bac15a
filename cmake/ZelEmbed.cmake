# zel_embed(<target> <file> <name>)
# Builds the bytes of a file into a target, as `unsigned char const zel::<name>[]` and `std::size_t
# const zel::<name>Size`. A change of the file rebuilds the target.
function(zel_embed target file name)
  set(input ${PROJECT_SOURCE_DIR}/${file})
  set(output ${PROJECT_BINARY_DIR}/embedded/${name}.cpp)
  set(script ${PROJECT_SOURCE_DIR}/cmake/embed_bytes.cmake)
  add_custom_command(OUTPUT ${output}
                     COMMAND ${CMAKE_COMMAND} -D INPUT=${input} -D OUTPUT=${output} -D NAME=${name}
                             -P ${script}
                     DEPENDS ${input} ${script} COMMENT "Embedding ${file}" VERBATIM)
  target_sources(${target} PRIVATE ${output})
endfunction()
