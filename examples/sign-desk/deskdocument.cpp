#include "deskdocument.h"

#include "pagefile.h"
#include "trouble.h"

#include <QCoreApplication>

#include <algorithm>

namespace signdesk {

DeskDocument::DeskDocument(std::unique_ptr<Pages> opened)
    : m_opened(std::move(opened))
{
}

const DocumentBytes &DeskDocument::bytes() const
{
    if (m_bytes.content.isEmpty())
        m_bytes = {m_opened->pdf(), m_opened->password()};
    return m_bytes;
}

const DocumentFacts &DeskDocument::facts() const
{
    if (m_facts != nullptr)
        return *m_facts;
    m_facts = std::make_unique<DocumentFacts>(factsOf(bytes()));
    std::vector<EmptyField> &fields = m_facts->emptyFields;
    const auto isTaken = [this](const EmptyField &field) {
        return std::any_of(
            m_steps.begin(), m_steps.end(), [&](const Step &step) { return step.formField == field.name; });
    };
    fields.erase(std::remove_if(fields.begin(), fields.end(), isTaken), fields.end());
    return *m_facts;
}

const SignedBytes &DeskDocument::with(const SignatureWish &wish)
{
    if (!knows(wish))
        learn(wish, addSignature(bytes(), wish, [](qint64, qint64) {}));
    return m_outcome;
}

bool DeskDocument::knows(const SignatureWish &wish) const
{
    return !m_outcome.content.isEmpty() && m_wish == wish;
}

void DeskDocument::learn(const SignatureWish &wish, const SignedBytes &outcome)
{
    m_outcome = outcome;
    m_wish = wish;
}

void DeskDocument::add(const SignatureWish &wish)
{
    const SignedBytes outcome = with(wish);
    const QByteArray added = outcome.isAppended ? outcome.content.mid(bytes().content.size()) : outcome.content;
    addStep({added, outcome.isAppended, wish.formField}, wish.page);
}

void DeskDocument::addStep(const AddedSignature &signature, std::optional<int> page)
{
    const QByteArray before = bytes().content;
    const Step step{before.size(), signature.isAppended ? QByteArray() : before, page, signature.formField};
    setContent(signature.isAppended ? before + signature.bytes : signature.bytes);
    m_steps.push_back(step);
}

std::vector<AddedSignature> DeskDocument::signatures() const
{
    std::vector<AddedSignature> added;
    QByteArray content = m_bytes.content;
    for (auto step = m_steps.rbegin(); step != m_steps.rend(); ++step) {
        const bool isAppended = step->rewritten.isEmpty();
        added.push_back(
            {isAppended ? content.mid(static_cast<int>(step->size)) : content, isAppended, step->formField});
        content = isAppended ? content.left(static_cast<int>(step->size)) : step->rewritten;
    }
    std::reverse(added.begin(), added.end());
    return added;
}

QByteArray DeskDocument::base() const
{
    if (m_opened->isPdf() || m_steps.empty())
        return {};
    const Step &first = m_steps.front();
    return first.rewritten.isEmpty() ? m_bytes.content.left(static_cast<int>(first.size)) : first.rewritten;
}

void DeskDocument::restore(const UnsavedSignature &unsaved)
{
    reset();
    if (!unsaved.base.isEmpty())
        m_bytes = {unsaved.base, m_opened->password()};
    try {
        for (const AddedSignature &signature : unsaved.added)
            addStep(signature, std::nullopt);
    } catch (const Trouble &) {
        reset();
        throw;
    } catch (const PasswordNeeded &) { // the password is another one, but not the file
        reset();
        throw unreadable(unsaved.path, QCoreApplication::translate("signdesk::Pages", "it is a damaged PDF."));
    }
}

std::set<int> DeskDocument::signedPages() const
{
    std::set<int> pages;
    for (const Step &step : m_steps) {
        if (step.page.has_value())
            pages.insert(*step.page);
    }
    return pages;
}

void DeskDocument::undo()
{
    if (m_steps.empty())
        return;
    const Step step = m_steps.back();
    setContent(step.rewritten.isEmpty() ? m_bytes.content.left(static_cast<int>(step.size)) : step.rewritten);
    m_steps.pop_back();
    m_facts.reset();
    if (m_steps.empty())
        reset();
}

void DeskDocument::reset()
{
    m_steps.clear();
    m_signed.reset();
    m_bytes = {};
    forget();
}

void DeskDocument::setContent(const QByteArray &content)
{
    const QString path = m_opened->file() == nullptr ? QString() : m_opened->file()->path;
    std::unique_ptr<Pages> pages = pagesOf({path, content, {}, 0}, m_opened->password());
    m_signed = std::move(pages);
    m_bytes.content = content;
    forget();
}

void DeskDocument::forget()
{
    m_facts.reset();
    m_outcome = {};
}

} // namespace signdesk
