#include "Services/Lightroom/DevelopPresetNames.h"

#include "Services/Lightroom/AdobeFolder.h"
#include "Support/LocalEnvironment.h"

#include <QDir>
#include <QDirIterator>
#include <QPromise>
#include <QRegularExpression>
#include <QSet>
#include <QXmlStreamReader>
#include <QtConcurrentRun>

#include <algorithm>
#include <array>
#include <deque>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

// Far above what a collection of presets has, far below what would keep a disk busy.
constexpr int deepestFolder = 5;
constexpr int mostEntries = 5'000;
constexpr qsizetype mostNames = 500;
constexpr qsizetype longestName = 60;
constexpr qint64 largestFile = qint64{8} * 1024 * 1024; ///< one with tables of colours has some hundred kB

constexpr QLatin1StringView cameraRawSettings("http://ns.adobe.com/camera-raw-settings/1.0/");

/// The first text of a list of texts in several languages.
QString firstText(QXmlStreamReader &xml)
{
    while (xml.readNext() != QXmlStreamReader::EndElement && !xml.atEnd()) {
        if (xml.isStartElement() && xml.name() == "li"_L1) {
            return xml.readElementText();
        }
        if (xml.isCharacters() && !xml.isWhitespace()) {
            return xml.text().toString();
        }
    }
    return {};
}

/// Empty when the document does not name itself.
QString nameInXmp(QFile &file)
{
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) {
            continue;
        }
        if (const auto name = xml.attributes().value(cameraRawSettings, "Name"_L1); !name.isEmpty()) {
            return name.toString();
        }
        if (xml.namespaceUri() != cameraRawSettings) {
            continue;
        }
        if (xml.name() == "Name"_L1) {
            return firstText(xml);
        }
        xml.skipCurrentElement(); // what it holds may have a name of its own
    }
    return {};
}

/// The title of the older kind of preset, a Lua table whose values stand behind it.
QString nameInTemplate(QFile &file)
{
    static const QRegularExpression title(uR"re(^\s*title = "((?:[^"\\\n]|\\.)*)")re"_s,
                                          QRegularExpression::MultilineOption);
    constexpr qint64 head = qint64{64} * 1024;
    QString name = title.match(QString::fromUtf8(file.read(head))).captured(1);
    name.replace(u"\\\""_s, u"\""_s);
    // A text to be translated, "$$$/Key=English".
    return name.startsWith("$$$/"_L1) ? name.sliced(name.indexOf(u'=') + 1) : name;
}

struct PresetKind
{
    QLatin1StringView suffix;
    QString (*name)(QFile &file);
};

constexpr std::array presetKinds{
    PresetKind{".xmp"_L1, nameInXmp},
    PresetKind{".lrtemplate"_L1, nameInTemplate},
};

/// Empty when this is no file of a preset.
QString presetName(const QFileInfo &info)
{
    const auto kind = std::ranges::find_if(presetKinds, [&](const PresetKind &candidate) {
        return info.fileName().endsWith(candidate.suffix, Qt::CaseInsensitive);
    });
    if (kind == presetKinds.end()) {
        return {};
    }
    QFile file(info.filePath());
    if (!file.open(QFile::ReadOnly)) {
        return {};
    }
    const QString name = file.size() > largestFile ? QString() : kind->name(file).trimmed();
    return name.isEmpty() ? info.completeBaseName() : name;
}

bool canBeSaid(const QString &name)
{
    return name.size() <= longestName && std::ranges::any_of(name, [](QChar c) { return c.isLetter(); });
}

/// Goes through folders, those nearest to the top first.
class PresetSearch
{
public:
    PresetSearch(QPromise<QStringList> &promise, const QStringList &folders)
        : m_promise(promise)
    {
        for (const QString &path : folders) {
            m_waiting.push_back({path, 0});
        }
    }

    QStringList names()
    {
        for (; !m_waiting.empty(); m_waiting.pop_front()) {
            const Folder folder = m_waiting.front();
            QDirIterator entries(folder.path,
                                 QDir::Dirs | QDir::Files | QDir::Readable | QDir::NoDotAndDotDot);
            while (entries.hasNext() && shouldGoOn()) {
                entries.next();
                take(entries.fileInfo(), folder.depth);
            }
        }
        QStringList sorted(m_names.begin(), m_names.end());
        sorted.sort();
        return sorted;
    }

private:
    struct Folder
    {
        QString path;
        int depth;
    };

    bool shouldGoOn()
    {
        return ++m_entries <= mostEntries && m_names.size() < mostNames && !m_promise.isCanceled();
    }

    void take(const QFileInfo &entry, int depth)
    {
        if (!entry.isDir()) {
            if (const QString name = presetName(entry); canBeSaid(name)) {
                m_names.insert(name);
            }
        } else if (depth < deepestFolder) {
            m_waiting.push_back({entry.filePath(), depth + 1});
        }
    }

    QPromise<QStringList> &m_promise;
    std::deque<Folder> m_waiting;
    QSet<QString> m_names;
    int m_entries = 0;
};

void readNames(QPromise<QStringList> &promise, const QStringList &folders)
{
    promise.addResult(PresetSearch(promise, folders).names());
}

} // namespace

DevelopPresetNames::DevelopPresetNames(QStringList folders)
    : m_folders(std::move(folders))
{
}

DevelopPresetNames::~DevelopPresetNames()
{
    m_reading.cancel(); // at the end of the program nobody waits for a slow disk
}

QStringList DevelopPresetNames::defaultFolders()
{
    QStringList folders = LocalEnvironment::value(u"KELVALR_PRESET_FOLDERS"_s)
                              .value_or(QString())
                              .split(QDir::listSeparator(), Qt::SkipEmptyParts);
    folders.append(adobeFolder() + "/CameraRaw/Settings"_L1);
    folders.append(adobeFolder() + "/Lightroom/Develop Presets"_L1);
    return folders;
}

QFuture<QStringList> DevelopPresetNames::read()
{
    if (!m_reading.isRunning()) {
        m_reading = QtConcurrent::run(&readNames, m_folders);
    }
    return m_reading;
}

} // namespace KelvaLR
