#include "outputfile.h"

#include "failure.h"
#include "interruption.h"
#include "unwritable.h"

#include <QFileInfo>

#include <cstdio>

namespace {

constexpr qint64 kPiece = 1 << 16;

} // namespace

OutputFile::OutputFile(const QString &path)
    : m_name(path == "-" ? QString("standard output") : path)
    , m_file(path == "-" ? path : QFileInfo(path).absoluteFilePath()) // the working directory may change
{
    const QFileInfo there(path);
    const bool canBeReplaced = path != "-" && (!there.exists() || there.isFile() || there.isDir());
    m_device = canBeReplaced ? static_cast<QFileDevice *>(&m_file) : &m_spooled;
    const bool isOpen = canBeReplaced ? m_file.open(QIODevice::WriteOnly) : m_spooled.open();
    m_device->setObjectName(m_name);
    if (!isOpen)
        throw unwritable(*m_device);
}

void OutputFile::finish()
{
    if (!m_device->flush())
        throw unwritable(*m_device);
}

void OutputFile::commit()
{
    finish();
    m_size = m_device->size();
    if (m_device == &m_file) {
        if (!m_file.commit())
            throw failed(QString("%1: %2").arg(m_name, m_file.errorString()));
        return;
    }
    QFile target(m_file.fileName());
    const bool isOpen =
        target.fileName() == "-" ? target.open(stdout, QIODevice::WriteOnly) : target.open(QIODevice::WriteOnly);
    if (!isOpen)
        throw failed(QString("%1: %2").arg(m_name, target.errorString()));
    pass(target);
}

void OutputFile::pass(QFile &target)
{
    m_spooled.seek(0);
    for (QByteArray piece = m_spooled.read(kPiece); !piece.isEmpty(); piece = m_spooled.read(kPiece)) {
        throwIfInterrupted();
        if (target.write(piece) != piece.size())
            throw failed(QString("%1: %2").arg(m_name, target.errorString()));
    }
    if (!target.flush())
        throw failed(QString("%1: %2").arg(m_name, target.errorString()));
}
