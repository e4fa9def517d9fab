#include "PanelTestEditor.h"

#include "CBitmap.h"
#include "CFrame.h"

PanelTestEditor::PanelTestEditor(AudioEffect* effect)
    : CPresetSystemEditor(effect), background(new CBitmap(128))
{
    setRectFromBitmap(background);
}

PanelTestEditor::~PanelTestEditor()
{
    if (frame) PanelTestEditor::close();
    background->forget();
}

bool PanelTestEditor::open(void* parent)
{
    AEffGUIEditor::open(parent);
    frame = new CFrame(CRect(0, 0, background->getWidth(), background->getHeight()), parent, this);
    frame->setBackground(background);
    return CPresetSystemEditor::open(parent);
}

void PanelTestEditor::close()
{
    CPresetSystemEditor::close();
    AEffGUIEditor::close();
}
