/// @file
/// Keeps what was signed and is not saved yet in a private file, so that neither a power failure nor a killed program
/// loses it. Each desk that runs has a file of its own; a file that no desk holds was left by one that ended too soon.
#ifndef SAFEKEEPING_H
#define SAFEKEEPING_H

#include "counter.h"
#include "statefolder.h"

#include <QObject>
#include <QTimer>

namespace signdesk {

/// A file that another desk left, and that is held here meanwhile.
struct LeftSignature
{
    OpenedFile lock;
    int slot = 0;
    UnsavedSignature signature;
};

class SafeKeeping : public QObject
{
    Q_OBJECT
public:
    /// Follows the counter from now on. What is confirmed is on the disk when the counter's signal returns; a new place
    /// for it follows a little later.
    explicit SafeKeeping(Counter &counter, QObject *parent = nullptr);

    /// What other desks left, the newest first. Files that cannot be read are put aside, and named in `damaged`.
    std::vector<LeftSignature> left(QStringList &damaged) const;

    /// The file is no longer needed: its signature was saved, discarded, or is kept by this desk.
    void remove(const LeftSignature &left) const;

    /// Whether all that is confirmed and not saved is on the disk.
    bool isSafe() const { return m_isSafe; }

    /// The file that is written, for messages.
    QString path() const;

    /// What is kept was discarded on purpose. Nothing is kept from now on.
    void end();

signals:
    /// Something that was confirmed could not be written.
    void failed();

private:
    void follow();
    bool write(UnsavedSignature unsaved);
    bool takeSlot();
    void removeOwn();

    Counter &m_counter;
    StateFolder m_folder;
    OpenedFile m_lock; ///< of the slot
    int m_slot = 0; ///< 0: none yet
    QByteArray m_written; ///< without its time; empty when there is no file
    bool m_isSafe = true;
    QTimer m_timer;
};

} // namespace signdesk

#endif
