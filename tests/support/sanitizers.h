// Which sanitizer this is built with: gcc defines a macro for each, clang has a feature for each.
#pragma once

#if defined(__has_feature)
#define ZEL_HAS_FEATURE(name) __has_feature(name)
#else
#define ZEL_HAS_FEATURE(name) 0
#endif

#if defined(__SANITIZE_ADDRESS__) || ZEL_HAS_FEATURE(address_sanitizer)
#define ZEL_ADDRESS_SANITIZER 1
#else
#define ZEL_ADDRESS_SANITIZER 0
#endif

#if defined(__SANITIZE_THREAD__) || ZEL_HAS_FEATURE(thread_sanitizer)
#define ZEL_THREAD_SANITIZER 1
#else
#define ZEL_THREAD_SANITIZER 0
#endif
