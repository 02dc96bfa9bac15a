// Included before everything by gcc up to version 12, for two of its warnings that are wrong about
// correct code at -O2, which version 13 fixed. They are switched off here and not by a flag, so
// that the flags in compile_commands.json are known to clang's tools too.
#if defined(__GNUC__) && !defined(__clang__)
// "text" + std::to_string(n).
#pragma GCC diagnostic ignored "-Wrestrict"
#ifdef ZEL_GCC12_VARIANTS
// A std::variant that is moved into a vector.
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif
#endif
