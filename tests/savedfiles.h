/// @file
/// Saving from an open pad into a directory of the test's own.
#ifndef SAVEDFILES_H
#define SAVEDFILES_H

#include "openpad.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

class SavedFiles
{
public:
    QString path(const QString &name) const { return m_directory.filePath(name); }

    int save(const OpenPad &pad, int type, const QString &name, int dpiLevel = IDLI_150DPI) const
    {
        std::wstring wide = path(name).toStdWString();
        return pad->SaveDrawingImage(pad.type(), type, wide.data(), dpiLevel);
    }

    QByteArray bytes(const QString &name) const
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
        return file.readAll();
    }

    void write(const QString &name, const QByteArray &bytes) const
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }

    QStringList names() const
    {
        return QDir(m_directory.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

private:
    QTemporaryDir m_directory;
};

#endif
