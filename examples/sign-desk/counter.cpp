#include "counter.h"

#include "pagefile.h"
#include "trouble.h"

namespace signdesk {

namespace {

/// Ink on a larger canvas that holds the fingerprint too, wherever it lies beside the field.
void addPrint(SignatureWish &wish, const QImage &print, const QRectF &at)
{
    const QRectF both = wish.place.united(at);
    const double scale = wish.ink.canvas.width() / wish.place.width();
    const QPointF moved = (wish.place.topLeft() - both.topLeft()) * scale;
    for (documents::InkLine &line : wish.ink.lines)
        line = {line.from + moved, line.to + moved, line.width};
    wish.ink.canvas = both.size() * scale;
    wish.ink.picture = print;
    wish.ink.picturePlace = QRectF((at.topLeft() - both.topLeft()) * scale, at.size() * scale);
    wish.place = both;
}

} // namespace

Counter::Counter(QObject *parent)
    : QObject(parent)
    , m_signing(m_session)
    , m_document(std::make_unique<DeskDocument>(blankPages()))
{
    connect(&m_signing, &Signing::keptChanged, this, &Counter::keptChanged);
}

Counter::~Counter()
{
    m_session.close();
}

void Counter::setDocument(std::unique_ptr<Pages> pages)
{
    stop();
    m_document = std::make_unique<DeskDocument>(std::move(pages));
    m_place = {};
    setKept(0);
    emit documentChanged();
}

void Counter::setPlace(const SignaturePlace &place)
{
    const bool isAnother =
        place.page != m_place.page || place.field != m_place.field || place.formField != m_place.formField;
    m_place = place;
    if (isAnother)
        changeConfirmed();
}

void Counter::changeConfirmed()
{
    m_signing.change();
    if (m_signing.state() == SigningState::Confirmed)
        emit confirmedChanged();
}

SignatureWish Counter::wish()
{
    look();
    SignatureWish wish;
    wish.page = m_place.page;
    wish.place = m_place.field;
    wish.pageSize = m_place.pageSize;
    wish.formField = m_place.formField;
    wish.ink = m_ink;
    wish.signatory = m_signatory;
    if (wish.ink.canvas.isEmpty())
        wish.ink.canvas = {1, 1};
    const QImage picture = print();
    if (!picture.isNull())
        addPrint(wish, picture, printPlace());
    return wish;
}

void Counter::needAllowed() const
{
    if (!m_document->pages().isPdf())
        return;
    SignatureWish asked;
    asked.page = m_place.page;
    asked.place = m_place.field;
    asked.pageSize = m_place.pageSize;
    asked.formField = m_place.formField;
    asked.signatory = m_signatory;
    signdesk::needAllowed(m_document->bytes(), asked);
}

void Counter::start(const PadFamily &model, const Pen &pen)
{
    m_session.open(model);
    m_session.setPen(pen);
    m_ink = {};
    m_signing.begin();
}

void Counter::stop()
{
    m_session.close();
    m_signing.end();
    m_ink = {};
}

bool Counter::look()
{
    return m_session.update(m_ink);
}

QRectF Counter::printPlace() const
{
    if (!m_session.isOpen() || !m_session.model().row.hasFingerprintSensor)
        return {};
    return fingerprintRectangle(m_fingerprintPlace, m_place.field, m_place.pageSize, !m_place.formField.isEmpty());
}

void Counter::setFingerprintPlace(FingerprintPlace place)
{
    const bool isAnother = place != m_fingerprintPlace;
    m_fingerprintPlace = place;
    if (isAnother)
        changeConfirmed();
}

bool Counter::prepare(const RunWork &run)
{
    if (m_signing.state() != SigningState::Confirmed)
        return true;
    // While the work runs, the signer may go on writing: then what is confirmed is no longer what is there.
    return prepare(wish(), run) && m_signing.state() == SigningState::Confirmed;
}

bool Counter::prepare(const SignatureWish &last, const RunWork &run)
{
    if (m_document->knows(last))
        return true;
    const DocumentBytes before = m_document->bytes();
    const auto outcome = std::make_shared<SignedBytes>();
    const bool isDone = run([=](Progress &progress) {
        *outcome = addSignature(before, last, [&](qint64 done, qint64 total) { progress.show(done, total); });
    });
    if (isDone)
        m_document->learn(last, *outcome);
    return isDone;
}

void Counter::setSignatory(const Signatory &signatory)
{
    m_signatory = signatory;
    changeConfirmed();
}

void Counter::add()
{
    if (m_signing.state() != SigningState::Confirmed)
        return;
    const bool wasKept = m_signing.isKept();
    m_document->add(wish());
    const int kept = wasKept && m_kept + 1 == m_document->added() ? m_kept + 1 : m_kept;
    stop();
    setKept(kept);
    emit documentChanged();
}

std::set<int> Counter::signedPages() const
{
    std::set<int> pages = m_document->signedPages();
    if (m_signing.state() == SigningState::Confirmed)
        pages.insert(m_place.page);
    return pages;
}

bool Counter::canUndo() const
{
    return m_signing.state() == SigningState::Closed && !isDocumentKept();
}

void Counter::undo()
{
    if (!canUndo())
        return;
    m_document->undo();
    emit keptChanged();
    emit documentChanged();
}

bool Counter::hasResult() const
{
    const SigningState state = m_signing.state();
    return state == SigningState::Confirmed || (state == SigningState::Closed && m_document->added() > 0);
}

SignedDocument Counter::result()
{
    if (m_signing.state() != SigningState::Confirmed)
        return {m_document->bytes(), m_place.page};
    const SignatureWish last = wish();
    return {{m_document->with(last).content, m_document->bytes().password}, last.page};
}

UnsavedSignature Counter::unsaved()
{
    UnsavedSignature unsaved;
    if (const PageFile *const file = m_document->opened().file()) {
        unsaved.path = file->path;
        unsaved.digest = file->digest;
    }
    unsaved.base = m_document->base();
    unsaved.added = m_document->signatures();
    unsaved.saved = m_kept;
    if (m_signing.state() != SigningState::Confirmed || m_signing.isKept())
        return unsaved;
    unsaved.confirmed = wish();
    if (m_signatory.key != nullptr)
        unsaved.signer = m_signatory.key->owner();
    return unsaved;
}

bool Counter::restore(const UnsavedSignature &unsaved, const RunWork &run)
{
    bool isRestored = false;
    try {
        m_document->restore(unsaved);
        isRestored = !unsaved.confirmed.has_value();
        if (unsaved.confirmed.has_value()) {
            SignatureWish last = *unsaved.confirmed;
            last.signatory = m_signatory;
            isRestored = prepare(last, run);
            if (isRestored)
                m_document->add(last);
        }
    } catch (const Trouble &) {
        m_document->reset();
        emit documentChanged();
        throw;
    }
    if (!isRestored)
        m_document->reset();
    setKept(isRestored ? unsaved.saved : 0);
    emit documentChanged();
    return isRestored;
}

void Counter::keep()
{
    // The signer may have gone on writing while the clerk chose a file: that ink is not in what was saved.
    const bool isClosed = m_signing.state() == SigningState::Closed;
    const bool isSaved = m_signing.state() == SigningState::Confirmed && m_document->knows(wish());
    if (isClosed || isSaved)
        m_signing.keep();
    setKept(m_document->added());
}

void Counter::setKept(int kept)
{
    m_kept = kept;
    emit keptChanged();
}

} // namespace signdesk
