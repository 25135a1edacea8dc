/// @file
/// Makes what form fields show a part of their pages.
#ifndef DOCUMENTS_FLATTEN_H
#define DOCUMENTS_FLATTEN_H

#include "formfields.h"
#include "pagetree.h"
#include "revision.h"

namespace documents {

/// Flattens all fields but those for signatures, and removes them and their annotations from the form.
/// @return how many fields there were
int flattenFields(Revision &revision, const std::vector<FormField> &fields, const std::vector<TreePage> &pages);

} // namespace documents

#endif
