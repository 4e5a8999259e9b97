#pragma once

#include <QStringList>

#include <initializer_list>
#include <random>

namespace KelvaLR::SpeechModels {

/// The word that stands for the name of any preset; the recogniser puts the user's own names in its place.
inline constexpr QStringView presetPlaceholder = u"[preset]";

/// Makes up what a photographer may say behind the wake phrase, from the tables of the command language, in
/// words only ("set exposure to minus zero point five"). The same seed gives the same sentences.
class CommandSentences
{
public:
    explicit CommandSentences(quint32 seed);

    /// One command, in lower case.
    [[nodiscard]] QString next();

    /// A number from 0 up to, but not including, 1.
    [[nodiscard]] double chance();

    [[nodiscard]] qsizetype place(qsizetype count);

    template <typename Choices>
    [[nodiscard]] QString oneOf(const Choices &choices)
    {
        return text(choices[static_cast<std::size_t>(place(static_cast<qsizetype>(std::size(choices))))]);
    }

private:
    static QString text(QStringView view) { return view.trimmed().toString(); }

    template <typename Row>
    static QString text(const Row &row)
        requires requires { row.phrase; }
    {
        return text(row.phrase);
    }

    QString sliderCommand();
    QString presetCommand();
    QString flagCommand();
    QString ratingCommand();
    QString navigationCommand();
    QString otherCommand();
    QString sliderValue(const QString &slider);
    QString unsignedValue(const QString &slider);
    QString belowHundred();
    QString thousands();
    QString place();

    std::mt19937 m_random;
};

} // namespace KelvaLR::SpeechModels
