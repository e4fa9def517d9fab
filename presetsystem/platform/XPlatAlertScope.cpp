#include "XPlatAlertScope.h"

#include <utility>

namespace
{
// Per thread: two hosts in one process may run their user interfaces on threads of their own.
XPlatAlertScope::Handler& innermost()
{
    thread_local XPlatAlertScope::Handler handler;
    return handler;
}
} // namespace

XPlatAlertScope::XPlatAlertScope(Handler handler) : previous(std::move(innermost()))
{
    innermost() = std::move(handler);
}

XPlatAlertScope::~XPlatAlertScope()
{
    innermost() = std::move(previous);
}

const XPlatAlertScope::Handler& XPlatAlertScope::current()
{
    return innermost();
}
