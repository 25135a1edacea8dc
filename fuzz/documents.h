/// @file
/// Documents out of bytes, for the targets that open PDFs.
#ifndef FUZZ_DOCUMENTS_H
#define FUZZ_DOCUMENTS_H

#include <documents/document.h>
#include <documents/problem.h>

#include <cstddef>
#include <cstdint>
#include <functional>

namespace fuzz {

/// Opens the bytes as a document and does something with it. A Problem is an answer like any other.
void withDocument(const uint8_t *data, size_t size, const std::function<void(documents::Document &)> &work);

} // namespace fuzz

#endif
