// The editor's window inside the host's window (DGL/pugl, Cairo): reports drawing and input to a
// listener, watches pointer crossings and focus, borrows the keyboard, and delivers the run loop's timers.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

class PlatformWindowListener;

class PlatformWindow
{
  public:
    // Embeds a window of width × height pixels in the host's window parentWindow (an X11 window id).
    PlatformWindow(uintptr_t parentWindow, int width, int height, PlatformWindowListener* listener);
    ~PlatformWindow();
    PlatformWindow(const PlatformWindow&) = delete;
    PlatformWindow& operator=(const PlatformWindow&) = delete;

    // Whether the window exists (false when no display could be opened).
    bool isValid() const;
    uintptr_t getNativeWindowHandle() const;
    // One pass of events, crossings, focus changes and due timers; the host's idle drives it.
    void idle();
    // Asks for a repaint of the rectangle (window pixels).
    void invalidRect(int x, int y, int width, int height);
    // Resizes the window (pixels); the host's window is the host's to resize.
    void setSize(int width, int height);

    // Takes the keyboard from whichever window holds it (hosts often keep it), remembering that window.
    void takeKeyboardFocus();
    // Gives the keyboard back to the window that held it before takeKeyboardFocus.
    void restoreKeyboardFocus();

    // The window layer's own browser for opening a file; waits until a file is chosen (its path) or the
    // browser is cancelled (nothing).
    std::optional<std::string> runBuiltInOpenDialog(const char* title, const char* startDirectory);

  private:
    struct Impl;
    std::unique_ptr<Impl> impl;
};
