/// @file
/// What is changed in a document and added to it, until it is written: appended behind the file's bytes, or as a part
/// of a file that is written anew.
#ifndef DOCUMENTS_REVISION_H
#define DOCUMENTS_REVISION_H

#include "reader.h"

#include <map>
#include <set>
#include <string>

namespace documents {

class Revision
{
public:
    explicit Revision(Reader &reader);

    QPDF &pdf() { return m_reader.pdf; }

    /// A new object; what is returned refers to it.
    QPDFObjectHandle add(QPDFObjectHandle object);

    /// A new stream, compressed where that makes it smaller.
    QPDFObjectHandle addStream(QPDFObjectHandle dictionary, const std::string &data);

    /// Whether the object is new in this revision.
    bool isAdded(const QPDFObjectHandle &object) const { return object.getObjectID() >= m_reader.firstNew; }

    /// To be called after qpdf has made objects of its own.
    void skipNumbersOfOthers();

    /// To be called for each indirect object of the file that is changed.
    void touch(const QPDFObjectHandle &object);

    /// A dictionary's or array's part that is to be changed: the part itself where it is direct (then `owner`, which is
    /// indirect, counts as changed) or the object that it refers to. What is missing or of another kind is made.
    QPDFObjectHandle dictionaryIn(QPDFObjectHandle owner, const std::string &key);
    QPDFObjectHandle arrayIn(QPDFObjectHandle owner, const std::string &key);

    /// The bytes that follow a file which ends at `end`.
    std::string appended(const Source &source, qint64 end);

    /// Writes the whole document anew, with its encryption, behind the file's begin.
    void writeAnew(Source &target);

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
    std::set<QPDFObjGen> m_changed; ///< and added
    std::map<QPDFObjGen, NewStream> m_streams;
};

} // namespace documents

#endif
