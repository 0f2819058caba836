#pragma once

/// Marks what the shared library shows to its users; everything else stays hidden.
#if defined(_WIN32)
#if defined(ORVANE_STATIC)
#define ORVANE_EXPORT
#elif defined(ORVANE_BUILDING)
#define ORVANE_EXPORT __declspec(dllexport)
#else
#define ORVANE_EXPORT __declspec(dllimport)
#endif
#else
#define ORVANE_EXPORT __attribute__((visibility("default")))
#endif
