#pragma once

/// @file
/// What the shared library shows and what it keeps to itself.

/// Marks a class or function as part of the library's public interface.
#define ZELNOR_API __attribute__((visibility("default")))

/// Marks a member of a public class as internal: other parts of the library use it, applications can't link
/// to it.
#define ZELNOR_INTERNAL __attribute__((visibility("hidden")))
