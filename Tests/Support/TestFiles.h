#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace KelvaLR::Testing {

/// Writes a file and the folders that it lies in.
inline void writeFile(const QString &path, const QByteArray &bytes,
                      QIODevice::OpenMode mode = QIODevice::WriteOnly)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(mode)) << path.toStdString();
    file.write(bytes);
}

/// The content of a file; none when it cannot be read.
[[nodiscard]] inline QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace KelvaLR::Testing
