/// @file
/// The models' names in a row, for messages.
#ifndef MODELNAMES_H
#define MODELNAMES_H

#include "modelrows.h"

#include <string>
#include <vector>

/// For modelNames: which models to name.
inline bool anyModel(const ModelRow &)
{
    return true;
}

/// "S210, S300 and S310X" with ", " between and " and " before the last one.
inline std::string modelNames(
    const std::string &between, const std::string &last, bool (*isWanted)(const ModelRow &) = anyModel)
{
    std::vector<const char *> names;
    for (const ModelRow *model : kModelRows) {
        if (isWanted(*model))
            names.push_back(model->name);
    }
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i)
        text += (i == 0 ? "" : i + 1 == names.size() ? last : between) + names[i];
    return text;
}

#endif
