/// @file
/// What an operation on the pad has come to, in the protocol's words.
#ifndef OUTCOME_H
#define OUTCOME_H

#include <signpad.hpp>

#include <QByteArray>
#include <QJsonObject>

#include <exception>
#include <optional>
#include <stdexcept>

namespace bridge {

struct Outcome
{
    const char *error = nullptr; ///< one of the protocol's; null: it went well
    QJsonObject members; ///< of the answer
    std::optional<QByteArray> binary; ///< for the frame after it
};

/// The protocol's name of a library's error.
const char *nameOf(kv::Errc error);

Outcome failed(const char *error);

/// Runs `work`, which fills the outcome; what it throws becomes the outcome's error.
template <class Work>
Outcome outcomeOf(Work work)
{
    Outcome outcome;
    try {
        work(outcome);
        return outcome;
    } catch (const kv::PadError &error) {
        return failed(nameOf(static_cast<kv::Errc>(error.code().value())));
    } catch (const std::invalid_argument &) {
        return failed("bad-message");
    } catch (const std::exception &) {
        return failed("failed");
    }
}

} // namespace bridge

#endif
