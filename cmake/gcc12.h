// Included before each source by gcc up to version 12, for some of its warnings that are wrong
// about correct code at -O2, which version 13 fixed. They are switched off here and not by a flag,
// so that the flags in compile_commands.json are known to clang's tools too.
#if defined(__GNUC__) && !defined(__clang__)
// "text" + std::to_string(n).
#pragma GCC diagnostic ignored "-Wrestrict"
#ifdef ZEL_PRECOMPILED
// The same texts. Where this comes after the headers in which the warning is found, -Wrestrict is
// switched off only there where they are used, and two others find the same.
#pragma GCC diagnostic ignored "-Wstringop-overflow"
#pragma GCC diagnostic ignored "-Warray-bounds"
#endif
#ifdef ZEL_GCC12_VARIANTS
// A std::variant that is moved into a vector.
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif
#endif
