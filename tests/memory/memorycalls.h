/// @file
/// A call of every exported function, with the answers it may give when memory runs out.
#ifndef MEMORYCALLS_H
#define MEMORYCALLS_H

#include "quietpad.h"

#include <functional>
#include <string>
#include <vector>

/// What a call returned, stored without allocating memory.
struct Answer
{
    long number = 0;
    char *text = nullptr;
};

/// Which part of a call's output is the same each time.
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
