#pragma once

#include <QByteArray>
#include <QObject>

namespace StandIn {

inline constexpr auto libraryModule = "library";
inline constexpr auto developModule = "develop";

/// The module of Lightroom that is shown, by its name in the SDK. The user and the plug-in both switch it.
class CurrentModule : public QObject
{
    Q_OBJECT

public:
    [[nodiscard]] const QByteArray &name() const { return m_name; }

    void switchTo(const QByteArray &name)
    {
        if (name != m_name) {
            m_name = name;
            Q_EMIT switched();
        }
    }

Q_SIGNALS:
    void switched();

private:
    QByteArray m_name{libraryModule};
};

} // namespace StandIn
