#pragma once

#include <functional>
#include <string>
#include <string_view>

/// A card of the lines, which are ended by "\n"; a last line needs no end.
std::string card(std::string_view lines, std::string_view version = "4.0");

/// The part so many times.
std::string repeated(std::string_view part, int count);

/// Texts that programs with errors, or with ill intent, hand over as cards; each goes to `use`. The
/// same ones in every run.
using UseText = std::function<void(const std::string& text)>;

/// A card with all that is hard to read, cut anywhere.
void useCutCards(const UseText& use);
/// That card without any one of its bytes.
void useCardsThatLackAByte(const UseText& use);
/// That card with some bytes changed or put between.
void useChangedCards(int count, const UseText& use);
/// Bytes of any kind, alone and in cards.
void useAnyBytes(const UseText& use);
/// Thousands of cards each in the one before, not ended and ended.
void useNestedCards(const UseText& use);
/// What would take forever if the time grew with the square of `count`.
void useCostlyCards(int count, const UseText& use);
