// A small CLAP host for the tests, on the CLAP headers the framework carries: loads one .clap, creates its
// single plug-in, reads its parameters and their texts, sends parameter events with the audio, saves and
// restores its state through streams, as a host does with a project, and embeds the plug-in's editor in an
// X11 window of its own, idling it through the timers the plug-in asks for.
#pragma once

#include "clap/entry.h"
#include "clap/events.h"
#include "clap/ext/audio-ports.h"
#include "clap/ext/gui.h"
#include "clap/ext/params.h"
#include "clap/ext/state.h"
#include "clap/ext/timer-support.h"
#include "clap/host.h"
#include "clap/plugin-factory.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

class ClapTestHost
{
  public:
    // Loads the file, initialises its entry and creates and initialises its one plug-in; null and a reason
    // on failure.
    static std::unique_ptr<ClapTestHost> load(const std::string& path, double sampleRate, uint32_t blockSize,
                                              std::string& error);
    ~ClapTestHost();
    ClapTestHost(const ClapTestHost&) = delete;
    ClapTestHost& operator=(const ClapTestHost&) = delete;

    const clap_plugin_descriptor_t& descriptor() const { return *plugin->desc; }
    // The extension the plug-in offers under this id, or null.
    const void* extension(const char* id) const;

    std::vector<clap_audio_port_info_t> audioPorts(bool input) const;

    // ---- parameters
    std::vector<clap_param_info_t> parameters() const;
    // The id of the parameter with this name; fails the test when there is none.
    clap_id parameterId(const std::string& name) const;
    double value(clap_id id) const;
    // The plug-in's text for this value, or "<refused>".
    std::string text(clap_id id, double value) const;
    // A value change the plug-in receives with the next processed block, at its start.
    void queueValue(clap_id id, double value);
    // Hands the queued changes over without audio, as a host does while the plug-in is not processing.
    void flush();
    // The values the plug-in reported as output events (its editor's edits, the meter), oldest first.
    const std::vector<std::pair<clap_id, double>>& reportedValues() const { return reported; }

    // ---- processing: activates on first use, runs in blocks of at most the block size
    void process(const float* inL, const float* inR, float* outL, float* outR, uint32_t frames);

    // ---- state as a host keeps it in a project, and back
    std::vector<uint8_t> saveState() const;
    bool restoreState(const std::vector<uint8_t>& bytes);

    // ---- the editor, embedded in the X11 window parent (host's main thread)
    // Creates and shows it; its size in width and height. False and a reason on failure.
    // A scale above 0 is given with set_scale right after the editor is created, as hosts on scaled screens
    // do.
    bool openEditor(unsigned long parent, uint32_t& width, uint32_t& height, std::string& error,
                    double scale = 0.0);
    // Fires the timers the plug-in registered, as a host's main loop does.
    void idleEditor();
    // The user dragging the window, as a host passes it on: whether it may, the size the plug-in makes of a
    // size, and the size given.
    bool canResizeEditor() const;
    bool adjustEditorSize(uint32_t& width, uint32_t& height) const;
    bool setEditorSize(uint32_t width, uint32_t height);
    // The sizes the plug-in asked its window to be, and whether the host lets it (not by default).
    const std::vector<std::pair<uint32_t, uint32_t>>& resizeRequests() const { return resizes; }
    void allowResizing(bool allowed) { resizeAllowed = allowed; }
    void closeEditor();

  private:
    ClapTestHost();
    static const void* hostExtension(const clap_host_t* host, const char* id);
    static bool registerTimer(const clap_host_t* host, uint32_t periodMs, clap_id* id);
    static bool requestResize(const clap_host_t* host, uint32_t width, uint32_t height);
    static bool unregisterTimer(const clap_host_t* host, clap_id id);
    const clap_plugin_gui_t* gui() const;
    bool create(const std::string& path, std::string& error);
    void activate();
    const clap_plugin_params_t* params() const;

    double rate = 44100.0;
    uint32_t block = 512;
    void* library = nullptr;
    const clap_plugin_entry_t* entry = nullptr;
    const clap_plugin_t* plugin = nullptr;
    bool active = false;
    clap_host_t host{};
    std::vector<clap_event_param_value_t> queued;
    std::vector<std::pair<clap_id, double>> reported;
    std::vector<clap_id> timers;
    clap_id nextTimer = 1;
    bool editorOpen = false;
    bool resizeAllowed = false;
    std::vector<std::pair<uint32_t, uint32_t>> resizes;
};
