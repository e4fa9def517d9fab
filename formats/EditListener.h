// What the plug-in tells the framework UI about edits made in the effect's own editor (host's UI thread).
#pragma once

#include <cstdint>

namespace spatara
{
class EditListener
{
  public:
    virtual ~EditListener() = default;
    // The editor set parameter index to a normalised value.
    virtual void parameterEdited(uint32_t index, float normalised) = 0;
    // A gesture on parameter index starts (true) or ends (false).
    virtual void editGesture(uint32_t index, bool started) = 0;
    // The effect's parameters may have changed without an edit: a preset was chosen or a bank loaded.
    virtual void parametersChanged() = 0;
    // The editor asks for its window to be width × height pixels (it changed its scale); true when the window
    // now is.
    virtual bool editorResized(int width, int height) = 0;
};
} // namespace spatara
