#pragma once

#include <future>

namespace kestor {

/// Begins to read on another thread which fonts the system has: most of what the first text of a program costs, while
/// the program connects to its display. To be waited for before there is text, since two would read them at once. Does
/// nothing on systems that have another way.
std::future<void> readFontsEarly();

} // namespace kestor
