#pragma once

#include "Support/PhraseTable.h"

#include <QLatin1StringView>

/// The words of the command language, all in lower case. The parsers match them in these orders, the
/// recogniser of speech expects them, and the user guide lists them.
namespace KelvaLR::CommandTables {

using namespace Qt::StringLiterals;

// Develop sliders: the phrase, and the slider's key for the plug-in.

inline constexpr std::array<PhraseRow<QLatin1StringView>, 18> sliderTable{{
    {u"exposure", "exposure"_L1},
    {u"contrast", "contrast"_L1},
    {u"highlights", "highlights"_L1},
    {u"shadows", "shadows"_L1},
    {u"whites", "whites"_L1},
    {u"blacks", "blacks"_L1},
    {u"temperature", "temperature"_L1},
    {u"temp", "temperature"_L1},
    {u"tint", "tint"_L1},
    {u"texture", "texture"_L1},
    {u"clarity", "clarity"_L1},
    {u"dehaze", "dehaze"_L1},
    {u"vibrance", "vibrance"_L1},
    {u"saturation", "saturation"_L1},
    {u"grain amount", "grainamount"_L1},
    {u"grain size", "grainsize"_L1},
    {u"grain frequency", "grainfrequency"_L1},
    {u"grain", "grainamount"_L1},
}};

inline constexpr PhraseList<12> actionWords{
    u"adjust",   u"change", u"set", u"reduce", u"decrease", u"lower",
    u"increase", u"raise",  u"add", u"remove", u"brighten", u"darken",
};

/// Makes the number the new value; as the first word of a request it stands without the blank before it.
inline constexpr QStringView absoluteWord = u" set ";

inline constexpr PhraseList<5> decreaseWords{u"reduce", u"decrease", u"lower", u"darken", u"remove"};

inline constexpr PhraseList<4> increaseWords{u"increase", u"raise", u"brighten", u"add"};

// Opening Lightroom, importing, presets.

inline constexpr PhraseList<3> launchVerbs{u"open ", u"launch ", u"start "};

inline constexpr PhraseList<2> importSubjects{u"folder", u"photos"};

inline constexpr PhraseList<5> importMarkers{
    u" from folder ", u" from the folder ", u" from ", u" in folder ", u" in the folder ",
};

inline constexpr PhraseList<10> presetMarkers{
    u"apply preset ",
    u"apply the preset ",
    u"use preset ",
    u"use the preset ",
    u"set preset ",
    u"set the preset ",
    u"apply preset called ",
    u"apply preset named ",
    u"apply lightroom preset ",
    u"apply the lightroom preset ",
};

inline constexpr PhraseList<3> presetVerbs{u"apply ", u"use ", u"set "};

inline constexpr PhraseList<3> presetNamePrefixes{u"called ", u"named ", u"the "};

inline constexpr QStringView presetSuffix = u" preset";

// Photos: flags, stars, one after the other, and what is selected.

inline constexpr std::array<PhraseRow<QLatin1StringView>, 8> cullTable{{
    {u"unflag", "unflag"_L1},
    {u"remove flag", "unflag"_L1},
    {u"clear flag", "unflag"_L1},
    {u"reject", "reject"_L1},
    {u"flag as reject", "reject"_L1},
    {u"pick", "pick"_L1},
    {u"flag as pick", "pick"_L1},
    {u"keeper", "pick"_L1},
}};

inline constexpr PhraseList<3> ratingPhrases{u"star", u"rating", u"rate "};

/// Digits are looked for before words, so "five stars, not 4" is 4.
inline constexpr std::array<PhraseRow<int>, 12> ratingTable{{
    {u"0", 0},
    {u"1", 1},
    {u"2", 2},
    {u"3", 3},
    {u"4", 4},
    {u"5", 5},
    {u"zero", 0},
    {u"one", 1},
    {u"two", 2},
    {u"three", 3},
    {u"four", 4},
    {u"five", 5},
}};

inline constexpr std::array<PhraseRow<QLatin1StringView>, 7> directionTable{{
    {u"next photo", "next"_L1},
    {u"next image", "next"_L1},
    {u"go next", "next"_L1},
    {u"previous photo", "prev"_L1},
    {u"previous image", "prev"_L1},
    {u"prev photo", "prev"_L1},
    {u"go previous", "prev"_L1},
}};

/// Words that name a direction only when they stand alone.
inline constexpr std::array<PhraseRow<QLatin1StringView>, 3> loneDirectionTable{{
    {u"next", "next"_L1},
    {u"previous", "prev"_L1},
    {u"prev", "prev"_L1},
}};

inline constexpr PhraseList<3> statusPhrases{u"status", u"what photo", u"selected photo"};

inline constexpr PhraseList<3> connectionTestPhrases{
    u"test lightroom connection",
    u"check lightroom connection",
    u"lightroom connection test",
};

// Imported photos: which are meant, and what a request about them can ask for beside presets, stars and
// sliders.

inline constexpr PhraseList<8> importedPhotoPhrases{
    u"selected",       u"these",           u"this photo",   u"this image",
    u"imported photo", u"imported photos", u"all imported", u"all photos",
};

/// Of these phrases, those that mean every photo and not only the selected ones.
inline constexpr PhraseList<4> allImportedPhotosPhrases{
    u"all imported",
    u"all imported photos",
    u"all photos",
    u"imported photos",
};

inline constexpr std::array<PhraseRow<QLatin1StringView>, 6> batchCullTable{{
    {u"unflag", "unflag"_L1},
    {u"clear flag", "unflag"_L1},
    {u"reject", "reject"_L1},
    {u"cull", "reject"_L1},
    {u"pick", "pick"_L1},
    {u"flag", "pick"_L1},
}};

/// A described look and the slider change it stands for, "name:value:1".
struct LookRow
{
    PhraseList<2> phrases;
    QLatin1StringView adjustment;
};

inline constexpr std::array<LookRow, 5> lookTable{{
    {{u"brighter", u"brighten"}, "exposure:0.3:1"_L1},
    {{u"darker", u"darken"}, "exposure:-0.3:1"_L1},
    {{u"warmer", u"warm up"}, "temperature:500:1"_L1},
    {{u"cooler", u"cool down"}, "temperature:-500:1"_L1},
    {{u"more contrast", u"contrastier"}, "contrast:10:1"_L1},
}};

// The elements and keys of a window.

inline constexpr PhraseList<6> clickVerbs{u"click on ", u"click the ", u"click ",
                                          u"tap on ",   u"tap the ",   u"tap "};

inline constexpr PhraseList<4> keyVerbs{u"press the ", u"press ", u"hit the ", u"hit "};

inline constexpr PhraseList<3> typeVerbs{u"type ", u"enter ", u"write "};

inline constexpr PhraseList<6> fieldSeparators{u" into the ", u" into ",   u" in the ",
                                               u" in ",       u" on the ", u" on "};

inline constexpr PhraseList<7> locationSuffixes{
    u" in lightroom classic",
    u" in lightroom",
    u" lightroom classic",
    u" lightroom",
    u" button",
    u" field",
    u" slider",
};

} // namespace KelvaLR::CommandTables
