/// @file
/// Saving from an open pad into a directory of the test's own.
#ifndef SAVEDFILES_H
#define SAVEDFILES_H

#include "openpad.h"

#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

class SavedFiles
{
public:
    SavedFiles() = default;
    ~SavedFiles() { std::filesystem::remove_all(m_directory.path().toStdString()); }
    SavedFiles(const SavedFiles &) = delete;
    SavedFiles &operator=(const SavedFiles &) = delete;

    QString path(const QString &name) const { return m_directory.path() + '/' + name; }

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

    /// The names on the disk, sorted, as raw bytes: Qt may not be able to decode them.
    std::vector<std::string> names() const
    {
        std::vector<std::string> found;
        for (const auto &entry : std::filesystem::directory_iterator(m_directory.path().toStdString()))
            found.push_back(entry.path().filename().string());
        std::sort(found.begin(), found.end());
        return found;
    }

private:
    QTemporaryDir m_directory;
};

#endif
