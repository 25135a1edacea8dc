/// @file
/// Documents out of bytes, for the targets that open PDFs.
#ifndef FUZZ_DOCUMENTS_H
#define FUZZ_DOCUMENTS_H

#include <documents/document.h>
#include <documents/problem.h>
#include <documents/signingkey.h>
#include <documents/verify.h>

#include <cstddef>
#include <cstdint>
#include <functional>

namespace fuzz {

/// Opens the bytes as a document and does something with it. A Problem is an answer like any other.
void withDocument(const uint8_t *data, size_t size, const std::function<void(documents::Document &)> &work);

/// A key with a certificate of its own, which nobody trusts.
const documents::SigningKey &signingKey();

/// What verification says when nobody is trusted.
documents::VerifyReport verified(documents::Document &document);

} // namespace fuzz

#endif
