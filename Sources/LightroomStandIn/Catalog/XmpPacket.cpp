#include "Catalog/XmpPacket.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <exiv2/error.hpp>
#include <exiv2/properties.hpp>

#include <string>

using namespace Qt::StringLiterals;

namespace StandIn {

namespace {

/// More than any sidecar holds; a larger file is not read into memory.
constexpr qint64 largestFile = qint64{32} * 1024 * 1024;

/// The XMP toolkit, brought up once for the process and taken down at its end.
class XmpToolkit
{
public:
    XmpToolkit()
    {
        Exiv2::LogMsg::setLevel(Exiv2::LogMsg::mute);
        Exiv2::XmpParser::initialize();
    }

    ~XmpToolkit() { Exiv2::XmpParser::terminate(); }

    XmpToolkit(const XmpToolkit &) = delete;
    XmpToolkit &operator=(const XmpToolkit &) = delete;
};

void ensureToolkit()
{
    static const XmpToolkit toolkit;
}

QString cameraRawKey(const QString &property)
{
    return u"Xmp.crs."_s + property;
}

QStringList itemsOf(const Exiv2::Xmpdatum &datum)
{
    QStringList items;
    for (long item = 0; item < datum.count(); ++item) {
        items.append(QString::fromStdString(datum.toString(item)));
    }
    return items;
}

Exiv2::XmpArrayValue listOf(Exiv2::TypeId kind, const QStringList &items)
{
    Exiv2::XmpArrayValue list(kind);
    for (const QString &item : items) {
        list.read(item.toStdString());
    }
    return list;
}

} // namespace

XmpPacket::XmpPacket()
{
    ensureToolkit();
}

std::expected<XmpPacket, QString> XmpPacket::parse(const QByteArray &bytes)
{
    XmpPacket packet;
    try {
        if (Exiv2::XmpParser::decode(packet.m_data, bytes.toStdString()) != 0) {
            return std::unexpected(u"it is no XMP"_s);
        }
    } catch (const std::exception &error) {
        return std::unexpected(QString::fromUtf8(error.what()));
    }
    return packet;
}

std::expected<XmpPacket, QString> XmpPacket::read(const QString &path)
{
    QFile file(path);
    if (!QFileInfo::exists(path)) {
        return XmpPacket();
    }
    if (!file.open(QIODevice::ReadOnly)) {
        return std::unexpected(file.errorString());
    }
    if (file.size() > largestFile) {
        return std::unexpected(u"it is too large"_s);
    }
    const QByteArray bytes = file.readAll();
    if (bytes.trimmed().isEmpty()) {
        return std::unexpected(u"it is empty"_s);
    }
    return parse(bytes);
}

std::expected<void, QString> XmpPacket::write(const QString &path) const
{
    std::string text;
    try {
        constexpr auto format = Exiv2::XmpParser::omitPacketWrapper | Exiv2::XmpParser::useCompactFormat;
        if (Exiv2::XmpParser::encode(text, m_data, format) != 0) {
            return std::unexpected(u"the XMP could not be written"_s);
        }
    } catch (const std::exception &error) {
        return std::unexpected(QString::fromUtf8(error.what()));
    }
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(QByteArray::fromStdString(text) + '\n') < 0 ||
        !file.commit()) {
        return std::unexpected(file.errorString());
    }
    return {};
}

QString XmpPacket::text(const char *key) const
{
    const auto found = m_data.findKey(Exiv2::XmpKey(key));
    return found == m_data.end() || found->count() == 0 ? QString()
                                                        : QString::fromStdString(found->toString(0));
}

void XmpPacket::setText(const char *key, const QString &text)
{
    m_data[key] = text.toStdString();
}

QStringList XmpPacket::items(const char *key) const
{
    const auto found = m_data.findKey(Exiv2::XmpKey(key));
    return found == m_data.end() ? QStringList() : itemsOf(*found);
}

void XmpPacket::setItems(const char *key, const QStringList &items)
{
    replace(Exiv2::XmpKey(key), listOf(Exiv2::xmpBag, items));
}

CameraRawSettings XmpPacket::cameraRawSettings() const
{
    CameraRawSettings settings;
    for (const Exiv2::Xmpdatum &datum : m_data) {
        const QString property = QString::fromStdString(datum.tagName());
        // The parts of structures and of lists of structures have a path for a name.
        if (datum.groupName() != "crs" || property.contains(u'/') || property.contains(u'[')) {
            continue;
        }
        if (datum.typeId() == Exiv2::xmpText) {
            const auto &value = dynamic_cast<const Exiv2::XmpTextValue &>(datum.value());
            if (value.xmpArrayType() == Exiv2::XmpValue::xaNone &&
                value.xmpStruct() == Exiv2::XmpValue::xsNone) {
                settings.insert(property, QString::fromStdString(datum.toString()));
            }
        } else if (datum.typeId() == Exiv2::xmpSeq) {
            settings.insert(property, itemsOf(datum));
        }
    }
    return settings;
}

void XmpPacket::setCameraRawValue(const QString &property, const CameraRawValue &value)
{
    const Exiv2::XmpKey key(cameraRawKey(property).toStdString());
    if (const auto *text = std::get_if<QString>(&value)) {
        replace(key, Exiv2::XmpTextValue(text->toStdString()));
    } else {
        replace(key, listOf(Exiv2::xmpSeq, std::get<QStringList>(value)));
    }
}

void XmpPacket::replace(const Exiv2::XmpKey &key, const Exiv2::Value &value)
{
    if (const auto old = m_data.findKey(key); old != m_data.end()) {
        m_data.erase(old);
    }
    m_data.add(key, &value);
}

} // namespace StandIn
