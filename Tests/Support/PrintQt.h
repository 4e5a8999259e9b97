#pragma once

#include <QString>
#include <QStringList>

#include <ostream>

QT_BEGIN_NAMESPACE

inline void PrintTo(const QString &text, std::ostream *out)
{
    *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QStringList &texts, std::ostream *out)
{
    *out << '[' << texts.join(QLatin1StringView(", ")).toStdString() << ']';
}

QT_END_NAMESPACE
