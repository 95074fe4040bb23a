// Symbol visibility of the tessik shared library.
#ifndef TESSIK_EXPORT_H
#define TESSIK_EXPORT_H

#if defined(_WIN32)
#if defined(TESSIK_BUILDING)
#define TESSIK_API __declspec(dllexport)
#else
#define TESSIK_API __declspec(dllimport)
#endif
#else
#define TESSIK_API __attribute__((visibility("default")))
#endif

#endif
