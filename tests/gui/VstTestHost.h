// A small VST 2.4 host for the editor tests: loads a plug-in .so (or takes an effect made in this process)
// and drives its editor through the dispatcher, as a real host does.
#pragma once

#include "VstInterface.h"
#include "VstLibrary.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>

class VstTestHost
{
  public:
    // dlopens path, calls VSTPluginMain (or the older "main") with callback and opens the effect.
    // Null with error set when the library or its entry cannot be found or makes no effect.
    static std::unique_ptr<VstTestHost> load(const std::string& path, audioMasterCallback callback,
                                             std::string& error);
    // Drives an effect made in this process; the host closes (frees) it at the end.
    explicit VstTestHost(AEffect* effect);
    ~VstTestHost();
    VstTestHost(const VstTestHost&) = delete;
    VstTestHost& operator=(const VstTestHost&) = delete;

    AEffect* getEffect() const { return effect; }
    VstIntPtr dispatch(VstInt32 opcode, VstInt32 index = 0, VstIntPtr value = 0, void* ptr = nullptr,
                       float opt = 0.0f);
    bool hasEditor() const { return effect->flags & effFlagsHasEditor; }
    // effEditGetRect: the editor's rectangle, or null.
    const ERect* getEditorRect();
    // effEditOpen with the X11 window id of the parent.
    bool openEditor(unsigned long parentWindow);
    void idleEditor() { dispatch(effEditIdle); }
    // Idles the editor as a host does (about every 10 ms) until done() answers true or the time is up;
    // answers whether done() did.
    bool idleEditorUntil(const std::function<bool()>& done,
                         std::chrono::milliseconds limit = std::chrono::seconds(3));
    void idleEditorFor(std::chrono::milliseconds time);
    void closeEditor() { dispatch(effEditClose); }

  private:
    VstTestHost(AEffect* effect, std::unique_ptr<VstLibrary> library);

    AEffect* effect;
    std::unique_ptr<VstLibrary> library; // null for an effect made in this process
};
