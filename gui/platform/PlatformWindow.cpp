#include "PlatformWindow.h"

#include "NoThrowCall.h"
#include "PlatformRunLoop.h"
#include "PlatformWindowListener.h"

#include "Application.hpp"
#include "Cairo.hpp"
#include "TopLevelWidget.hpp"
#include "Window.hpp"

#include <X11/Xlib.h>
#include <algorithm>
#include <optional>
#include <unistd.h>

namespace dgl = SpataraDGL;

// Our key and modifier numbers are DGL's, so events pass through unchanged.
constexpr bool sameCode(unsigned ours, unsigned theirs)
{
    return ours == theirs;
}
static_assert(sameCode(kPlatformKeyLeft, dgl::kKeyLeft) && sameCode(kPlatformKeyUp, dgl::kKeyUp) &&
              sameCode(kPlatformKeyRight, dgl::kKeyRight) && sameCode(kPlatformKeyDown, dgl::kKeyDown) &&
              sameCode(kPlatformKeyHome, dgl::kKeyHome) && sameCode(kPlatformKeyEnd, dgl::kKeyEnd) &&
              sameCode(kPlatformKeyBackspace, dgl::kKeyBackspace) &&
              sameCode(kPlatformKeyEscape, dgl::kKeyEscape) && sameCode(kPlatformKeyDelete, dgl::kKeyDelete));
static_assert(sameCode(kPlatformModifierShift, dgl::kModifierShift) &&
              sameCode(kPlatformModifierControl, dgl::kModifierControl) &&
              sameCode(kPlatformModifierAlt, dgl::kModifierAlt) &&
              sameCode(kPlatformModifierSuper, dgl::kModifierSuper));

namespace
{
class SpataraApplication : public dgl::Application
{
  public:
    // The class name must be set before the window exists.
    SpataraApplication() : dgl::Application(false) { setClassName("ZEV_Spatara"); }
};

class HostedWindow : public dgl::Window
{
  public:
    HostedWindow(dgl::Application& app, uintptr_t parent, unsigned width, unsigned height)
        : dgl::Window(app, parent, width, height, 1.0, false)
    {
    }

    bool fileBrowserDone = false;
    std::optional<std::string> chosenFile;

  protected:
    // Called from the window system's event loop, like the widget's events below.
    void onFileSelected(const char* filename) override
    {
        fileBrowserDone = true;
        if (filename) callWithoutThrowing([&] { chosenFile = filename; });
    }
};

bool isNonCharacterKey(unsigned key)
{
    switch (key)
    {
    case kPlatformKeyBackspace:
    case kPlatformKeyTab:
    case kPlatformKeyReturn:
    case kPlatformKeyEscape:
    case kPlatformKeyDelete:
    case kPlatformKeyLeft:
    case kPlatformKeyUp:
    case kPlatformKeyRight:
    case kPlatformKeyDown:
    case kPlatformKeyHome:
    case kPlatformKeyEnd:
        return true;
    default:
        return false;
    }
}

class FrameWidget : public dgl::TopLevelWidget
{
  public:
    FrameWidget(dgl::Window& window, PlatformWindowListener* listener)
        : dgl::TopLevelWidget(window), listener(listener)
    {
    }

  protected:
    // The window system calls these from its C event loop: nothing thrown below may pass through it.
    void onDisplay() override
    {
        const auto& context = static_cast<const dgl::CairoGraphicsContext&>(getGraphicsContext());
        callWithoutThrowing([&] { listener->onPlatformDraw(context.handle); });
    }

    bool onMouse(const MouseEvent& ev) override
    {
        callWithoutThrowing(
            [&]
            {
                listener->onPlatformMouseButton(ev.pos.getX(), ev.pos.getY(), static_cast<int>(ev.button),
                                                ev.press, ev.mod);
            });
        return true;
    }

    bool onMotion(const MotionEvent& ev) override
    {
        callWithoutThrowing([&] { listener->onPlatformMotion(ev.pos.getX(), ev.pos.getY(), ev.mod); });
        return true;
    }

    bool onScroll(const ScrollEvent& ev) override
    {
        callWithoutThrowing(
            [&] {
                listener->onPlatformScroll(ev.pos.getX(), ev.pos.getY(), ev.delta.getX(), ev.delta.getY(),
                                           ev.mod);
            });
        return true;
    }

    // Characters come through onCharacterInput (with Shift applied); only the other keys are taken here.
    bool onKeyboard(const KeyboardEvent& ev) override
    {
        return isNonCharacterKey(ev.key) &&
               callWithoutThrowing(false, [&] { return listener->onPlatformKey(ev.press, ev.key, ev.mod); });
    }

    bool onCharacterInput(const CharacterInputEvent& ev) override
    {
        // Control characters (Backspace, Return, …) also arrive here; they were handled as keys.
        if (ev.character < 0x20 || ev.character == 0x7F) return false;
        return callWithoutThrowing(false,
                                   [&] { return listener->onPlatformCharacter(ev.character, ev.mod); });
    }

  private:
    PlatformWindowListener* listener;
};

int ignoreXError(Display*, XErrorEvent*)
{
    return 0;
}
} // namespace

struct PlatformWindow::Impl
{
    Impl(uintptr_t parent, int width, int height, PlatformWindowListener* listener) : listener(listener)
    {
        // Our own connection watches the crossings and focus changes that DGL drops; without a display
        // there is no window at all (DGL would not survive it).
        watch = XOpenDisplay(nullptr);
        if (!watch) return;
        // A parent that does not exist would end the host through Xlib's error handler: no window then.
        if (!windowExists(static_cast<::Window>(parent))) return;
        app.emplace();
        window.emplace(*app, parent, static_cast<unsigned>(width), static_cast<unsigned>(height));
        widget.emplace(*window, listener);
        if (window->getNativeWindowHandle())
        {
            XSelectInput(watch, static_cast<::Window>(window->getNativeWindowHandle()),
                         EnterWindowMask | LeaveWindowMask | FocusChangeMask);
            XFlush(watch);
        }
    }

    ~Impl()
    {
        // The widget and the window go before the application they belong to.
        widget.reset();
        window.reset();
        app.reset();
        if (watch) XCloseDisplay(watch);
    }

    bool windowExists(::Window candidate)
    {
        XSync(watch, False);
        auto* const previousHandler = XSetErrorHandler(ignoreXError);
        XWindowAttributes attributes;
        const Status found = XGetWindowAttributes(watch, candidate, &attributes);
        XSync(watch, False);
        XSetErrorHandler(previousHandler);
        return found != 0;
    }

    void readCrossings()
    {
        bool focusLeft = false;
        while (watch && XPending(watch) > 0)
        {
            XEvent event;
            XNextEvent(watch, &event);
            if (event.type == LeaveNotify && event.xcrossing.detail != NotifyInferior)
                listener->onPlatformPointerLeft();
            else if (event.type == FocusOut && event.xfocus.detail != NotifyInferior)
                focusLeft = true;
        }
        // Taking the focus from the pointer-root also sends a FocusOut: only a focus now elsewhere counts.
        if (focusLeft)
        {
            ::Window focused = None;
            int revertTo = 0;
            XGetInputFocus(watch, &focused, &revertTo);
            if (focused != static_cast<::Window>(window->getNativeWindowHandle()))
                listener->onPlatformFocusLost();
        }
    }

    PlatformWindowListener* listener;
    std::optional<SpataraApplication> app;
    std::optional<HostedWindow> window;
    std::optional<FrameWidget> widget;
    Display* watch = nullptr;
    ::Window previousFocus = None;
    bool keyboardTaken = false;
};

PlatformWindow::PlatformWindow(uintptr_t parentWindow, int width, int height,
                               PlatformWindowListener* listener)
    : impl(std::make_unique<Impl>(parentWindow, width, height, listener))
{
}

PlatformWindow::~PlatformWindow() = default;

bool PlatformWindow::isValid() const
{
    return impl->window && impl->window->getNativeWindowHandle() != 0;
}

uintptr_t PlatformWindow::getNativeWindowHandle() const
{
    return impl->window ? impl->window->getNativeWindowHandle() : 0;
}

void PlatformWindow::idle()
{
    if (!impl->window) return;
    impl->app->idle();
    impl->readCrossings();
    PlatformRunLoop::current().fireDueTimers();
}

void PlatformWindow::invalidRect(int x, int y, int width, int height)
{
    if (!impl->window || width <= 0 || height <= 0) return;
    impl->window->repaint(dgl::Rectangle<uint>(static_cast<uint>(std::max(x, 0)),
                                               static_cast<uint>(std::max(y, 0)), static_cast<uint>(width),
                                               static_cast<uint>(height)));
}

void PlatformWindow::setSize(int width, int height)
{
    if (!impl->window || width <= 0 || height <= 0) return;
    impl->window->setSize(static_cast<uint>(width), static_cast<uint>(height));
}

void PlatformWindow::takeKeyboardFocus()
{
    if (!impl->window) return;
    if (!impl->keyboardTaken)
    {
        int revertTo = 0;
        XGetInputFocus(impl->watch, &impl->previousFocus, &revertTo);
        impl->keyboardTaken = true;
    }
    impl->window->focus();
}

void PlatformWindow::restoreKeyboardFocus()
{
    if (!impl->keyboardTaken) return;
    impl->keyboardTaken = false;
    const ::Window previous = impl->previousFocus;
    if (previous == None || previous == PointerRoot ||
        previous == static_cast<::Window>(impl->window->getNativeWindowHandle()))
        return;
    // The window may have gone meanwhile; an X error must not end the host.
    XSync(impl->watch, False);
    auto* const previousHandler = XSetErrorHandler(ignoreXError);
    XSetInputFocus(impl->watch, previous, RevertToParent, CurrentTime);
    XSync(impl->watch, False);
    XSetErrorHandler(previousHandler);
}

std::optional<std::string> PlatformWindow::runBuiltInOpenDialog(const char* title, const char* startDirectory)
{
    if (!impl->window) return std::nullopt;
    dgl::FileBrowserOptions options;
    options.title = title;
    options.startDir = startDirectory;
    impl->window->fileBrowserDone = false;
    impl->window->chosenFile.reset();
    if (!impl->window->openFileBrowser(options)) return std::nullopt;
    while (!impl->window->fileBrowserDone)
    {
        impl->app->idle();
        usleep(20000);
    }
    return impl->window->chosenFile;
}
