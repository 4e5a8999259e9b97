#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <gtest/gtest.h>

namespace KelvaLR::Testing {

[[nodiscard]] inline QString samplePhoto(const char *name)
{
    return QLatin1StringView(KELVALR_SAMPLE_PHOTOS "/") + QLatin1StringView(name);
}

[[nodiscard]] inline QByteArray contentOf(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QFile::ReadOnly));
    return file.readAll();
}

inline void write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write(bytes);
}

} // namespace KelvaLR::Testing
