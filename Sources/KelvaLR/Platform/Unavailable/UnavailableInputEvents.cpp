#include "Platform/Unavailable/UnavailableInputEvents.h"

namespace KelvaLR {

QCoro::Task<bool> UnavailableInputEvents::postKey(quint16, KeyModifiers)
{
    co_return false;
}

QCoro::Task<bool> UnavailableInputEvents::postText(QString)
{
    co_return false;
}

QCoro::Task<bool> UnavailableInputEvents::postClick(QPointF)
{
    co_return false;
}

} // namespace KelvaLR
