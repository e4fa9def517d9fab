// The smallest main editor on the preset system: a frame of the product's size on the background bitmap,
// with the preset panel added by CPresetSystemEditor::open as the main editor does it.
#pragma once

#include "CPresetSystemEditor.h"

class CBitmap;

class PanelTestEditor : public CPresetSystemEditor
{
  public:
    explicit PanelTestEditor(AudioEffect* effect);
    ~PanelTestEditor() override;

    bool hasWindow() const override { return true; }
    // parent null: a frame without a window, for the tests that need no display.
    bool open(void* parent) override;
    void close() override;

    // The dialog the panel would run, for the tests that drive it directly.
    std::optional<std::string> fileDialog(const FileChoice& choice) { return runFileDialog(choice); }

  private:
    CBitmap* background;
};
