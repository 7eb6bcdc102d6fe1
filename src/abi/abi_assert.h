/* A compile-time check that reads the same in C11 and in C++. */
#ifndef CHROMALOG_ABI_ASSERT_H
#define CHROMALOG_ABI_ASSERT_H

#ifdef __cplusplus
#define CHROMALOG_ABI_ASSERT(condition) static_assert(condition, #condition)
#else
#define CHROMALOG_ABI_ASSERT(condition) _Static_assert(condition, #condition)
#endif

#endif
