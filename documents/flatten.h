/// @file
/// Makes what form fields show a part of their pages.
#ifndef DOCUMENTS_FLATTEN_H
#define DOCUMENTS_FLATTEN_H

#include "formfields.h"
#include "pagetree.h"
#include "revision.h"

namespace documents {

/// All fields but those for signatures. Their annotations go, and the form keeps nothing of them.
/// @return how many fields there were
int flattenFields(Revision &revision, const std::vector<FormField> &fields, const std::vector<TreePage> &pages);

} // namespace documents

#endif
