#include "Platform/Unavailable/UnavailableInputEvents.h"

namespace KelvaLR {

QCoro::Task<> UnavailableInputEvents::postKey(quint16, KeyModifiers)
{
    co_return;
}

QCoro::Task<> UnavailableInputEvents::postText(QString)
{
    co_return;
}

QCoro::Task<> UnavailableInputEvents::postClick(QPointF)
{
    co_return;
}

} // namespace KelvaLR
