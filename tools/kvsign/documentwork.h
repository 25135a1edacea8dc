/// @file
/// What the subcommands that work on PDFs share.
#ifndef DOCUMENTWORK_H
#define DOCUMENTWORK_H

#include "failure.h"

#include <functional>

/// Runs something of the documents library; what goes wrong there is thrown as a Failure. A hostile document ends with
/// too little memory, and not with none left for others.
int withDocuments(const std::function<int()> &work);

#endif
