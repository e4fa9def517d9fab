// Where the alerts raised on this thread show while it exists: an editor holds one around its own actions,
// so its alerts show in its own window and never in another instance's.
#pragma once

#include <functional>

class XPlatAlertScope
{
  public:
    using Handler = std::function<void(const char*)>;

    // Alerts on this thread go to handler until this scope ends; then the previous handler (or none: the
    // desktop's dialog) comes back.
    explicit XPlatAlertScope(Handler handler);
    ~XPlatAlertScope();
    XPlatAlertScope(const XPlatAlertScope&) = delete;
    XPlatAlertScope& operator=(const XPlatAlertScope&) = delete;

    // The handler of the innermost scope on this thread; empty outside every scope.
    static const Handler& current();

  private:
    Handler previous;
};
