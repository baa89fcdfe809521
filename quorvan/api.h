// What of the library a program outside it may call.
#pragma once

#if defined(QUORVAN_STATIC)
#define QUORVAN_API
#elif defined(_WIN32)
#if defined(QUORVAN_BUILDING)
#define QUORVAN_API __declspec(dllexport)
#else
#define QUORVAN_API __declspec(dllimport)
#endif
#else
#define QUORVAN_API __attribute__((visibility("default")))
#endif
