/// @file
/// Functions of Qt's in which a process ends, or waits for itself, when memory fails in them.
#ifndef MEMORYENDINGS_H
#define MEMORYENDINGS_H

#include "crashingchild.h"

#include <string>

namespace memoryendings {

/// Whether the child's end in a call of the library is Qt's own: it was in no code of the library's, and in a function
/// of Qt's that is known for it.
bool isOfQt(const std::string &call, const ChildReport &report);

/// Whether it failed while a QWidget was made, whose window may keep the half made child. Asks for no memory.
bool isHalfMade(const CrashStack &failed);

/// "crashed in QImageWriter::write".
std::string inWords(const ChildReport &report);

} // namespace memoryendings

#endif
