/// @file
/// Each model with the exported functions of its family, for programs that serve all pads with one code. The functions
/// are those of signpadtable.hpp, which is generated from the header; a function that a family does not have is null.
#ifndef PADFAMILIES_H
#define PADFAMILIES_H

#include "modelrows.h"
#include "signpadtable.hpp"

#include <array>
#include <cstddef>
#include <iterator>
#include <utility>

/// `model` is its name, `type` the first argument of its functions.
struct PadFamily : kv::detail::Family
{
    const ModelRow &row;
};

namespace padfamilies {

template <std::size_t... i>
constexpr std::array<PadFamily, sizeof...(i)> all(std::index_sequence<i...>)
{
    return {{{kv::detail::kFamilies[i], *modelOfType(kv::detail::kFamilies[i].type)}...}};
}

} // namespace padfamilies

/// A family whose model has no row does not compile.
inline constexpr auto kPadFamilies = padfamilies::all(std::make_index_sequence<std::size(kv::detail::kFamilies)>());
static_assert(kPadFamilies.size() == std::size(kModelRows));

/// Null when there is no such model; capitals count.
constexpr const PadFamily *familyOfName(std::string_view name)
{
    for (const PadFamily &family : kPadFamilies) {
        if (family.model == name)
            return &family;
    }
    return nullptr;
}

#endif
