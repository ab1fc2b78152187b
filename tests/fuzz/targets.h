#pragma once

#include <string_view>

namespace fuzz {

/// Text from outside, as a fuzzer or its corpus has it. What breaks a promise aborts.
using Target = void (*)(std::string_view text);

/// A saved game: one that is read is saved and loads again.
void savedGame(std::string_view text);
/// A number of a saved game, and an amount typed or pasted with the list it opens.
void number(std::string_view text);
/// A saved game, a zero byte, a seed for chance and then what a captain does, a byte a choice, at
/// most 200 orders. What was played is saved and goes on as it was.
void play(std::string_view text);

}  // namespace fuzz
