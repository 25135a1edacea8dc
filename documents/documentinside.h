/// @file
/// What an open document consists of.
#ifndef DOCUMENTS_DOCUMENTINSIDE_H
#define DOCUMENTS_DOCUMENTINSIDE_H

#include "document.h"
#include "formfields.h"
#include "pagetree.h"
#include "reader.h"

#include <map>

namespace documents {

struct Document::Inside
{
    Inside(Source opened, const QByteArray &withPassword)
        : source(std::move(opened))
        , password(withPassword)
    {
    }

    Source source;
    QByteArray password;
    std::unique_ptr<Reader> reader;
    std::vector<TreePage> pages;
    std::vector<FormField> fields;
    bool isUsed = false; ///< it has been signed, which works once

    /// The page that shows a widget; -1 for none.
    int pageOf(const QPDFObjectHandle &widget);

private:
    void findAnnotations();

    std::map<QPDFObjGen, int> m_pageOf; ///< pages and their annotations
    bool m_isFound = false;
};

} // namespace documents

#endif
