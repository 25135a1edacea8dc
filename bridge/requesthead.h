/// @file
/// The head of an HTTP request, read strictly: what could be understood in two ways is not understood at all.
#ifndef REQUESTHEAD_H
#define REQUESTHEAD_H

#include <QByteArray>
#include <QByteArrayList>

#include <optional>
#include <vector>

namespace bridge {

/// A head that is longer is malformed: browsers send one of 1 KB, and cookies of other programs on loopback with it.
inline constexpr int kLongestHead = 16 * 1024;

struct HeadField
{
    QByteArray name; ///< in lower case
    QByteArray value; ///< without the blanks around it
};

struct RequestHead
{
    QByteArray method;
    QByteArray target;
    std::vector<HeadField> fields;

    int count(const char *name) const;
    /// The value of a field that is there exactly once.
    std::optional<QByteArray> single(const char *name) const;
    /// The comma-separated words of all fields of the name, in lower case.
    std::vector<QByteArray> words(const char *name) const;
};

enum class HeadState
{
    Incomplete, ///< so far nothing is wrong with it
    Malformed,
    Complete
};

/// Reads the first bytes of a connection. The head is set when it is complete.
/// Lines end with CR LF; no field goes on in a second line; names are tokens; there is no other control character than
/// a tab in a value. Only HTTP/1.1. Pure; any thread.
HeadState readHead(const QByteArray &bytes, RequestHead &head);

} // namespace bridge

#endif
