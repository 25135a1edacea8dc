/// @file
/// Shared by the subcommands that work on PDFs.
#ifndef DOCUMENTWORK_H
#define DOCUMENTWORK_H

#include "failure.h"

#include <functional>

/// Runs work of the documents library and throws its problems as a Failure. Limits the process's memory, so that a
/// hostile document cannot take it from other programs.
int withDocuments(const std::function<int()> &work);

#endif
