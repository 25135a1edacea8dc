/// @file
/// Collects the changes to a document until it is written: appended to the file's bytes, or as part of a file that is
/// written anew.
#ifndef DOCUMENTS_REVISION_H
#define DOCUMENTS_REVISION_H

#include "reader.h"

#include <functional>
#include <map>
#include <set>
#include <string>

namespace documents {

class Revision
{
public:
    explicit Revision(Reader &reader);

    QPDF &pdf() { return m_reader.pdf; }

    /// Adds an object and returns a reference to it.
    QPDFObjectHandle add(QPDFObjectHandle object);

    /// Adds a stream, compressed if that makes it smaller.
    QPDFObjectHandle addStream(QPDFObjectHandle dictionary, const std::string &data);

    /// Whether the object is new in this revision.
    bool isAdded(const QPDFObjectHandle &object) const { return object.getObjectID() >= m_reader.firstNew; }

    /// Call it after qpdf has made objects itself.
    void skipNumbersOfOthers();

    /// Call it for each indirect object of the file that you change.
    void touch(const QPDFObjectHandle &object);

    /// The value of a key, to be changed: the direct value (then `owner`, which is indirect, counts as changed) or the
    /// object that it refers to. Makes the value if it is missing or of another type.
    QPDFObjectHandle dictionaryIn(QPDFObjectHandle owner, const std::string &key);
    QPDFObjectHandle arrayIn(QPDFObjectHandle owner, const std::string &key);

    /// The bytes to append to a file that ends at `end`.
    std::string appended(const Source &source, qint64 end);

    /// Writes the whole document anew, with its encryption, from the start of the file.
    /// @param progress is told how many hundredths are done; what it throws ends the work
    void writeAnew(Source &target, const std::function<void(int)> &progress);

private:
    struct NewStream
    {
        std::string dictionary;
        std::string data;
    };

    QPDFObjectHandle partIn(QPDFObjectHandle owner, const std::string &key, const QPDFObjectHandle &otherwise);
    void findNew();
    std::string written(QPDFObjGen object);
    QPDFObjectHandle trailer(qint64 previous, int size);

    Reader &m_reader;
    int m_next; ///< the number of the next new object
    std::set<QPDFObjGen> m_changed; ///< changed and added objects
    std::map<QPDFObjGen, NewStream> m_streams;
};

} // namespace documents

#endif
