/// @file
/// Every exported function as a call that memory may fail in, with the answers that it may then give.
#ifndef MEMORYCALLS_H
#define MEMORYCALLS_H

#include "quietpad.h"

#include <functional>
#include <string>
#include <vector>

/// What a call answered, kept without asking for memory.
struct Answer
{
    long number = 0;
    char *text = nullptr;
};

/// How much of what a call brings out is the same each time.
enum class Content
{
    Nothing, ///< only the number counts
    Bytes,
    Length ///< there are times in it
};

struct MemoryCall
{
    std::string name;
    std::string failures; ///< words: answers besides that with memory
    bool (*isFor)(const PadCase &pad);
    std::function<void(QuietPad &pad)> prepare; ///< before memory fails
    Answer (*call)(QuietPad &pad);
    Content content = Content::Nothing; ///< of the text, or of the file where there is none
    void (*release)(QuietPad &pad, char *text) = nullptr; ///< null: what is answered is no text
};

const std::vector<MemoryCall> &memoryCalls();

/// The answer in words, with a digest of what came out. A text is released.
std::string told(QuietPad &pad, const MemoryCall &call, const Answer &answer);

#endif
