# Writes a source that holds the bytes of a file as an array `NAME` and their number as `NAME`Size.
#   cmake -D INPUT=<file> -D OUTPUT=<source> -D NAME=<name> -P embed_bytes.cmake
cmake_minimum_required(VERSION 3.20)

file(READ ${INPUT} bytes HEX)
string(LENGTH "${bytes}" digits)
math(EXPR size "${digits} / 2")
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${bytes}")
string(REPEAT "0x..," 16 line)
string(REGEX REPLACE "(${line})" "\\1\n" bytes "${bytes}")
get_filename_component(file ${INPUT} NAME)
file(WRITE ${OUTPUT} "// The bytes of ${file}, and a 0 after them.
#include <cstddef>

namespace zel {
extern unsigned char const ${NAME}[];
extern std::size_t const ${NAME}Size;
unsigned char const ${NAME}[] = {
${bytes}0};
std::size_t const ${NAME}Size = ${size};
}  // namespace zel
")
