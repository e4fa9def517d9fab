// A control listener and editor interface that record what the controls told them.
#pragma once

#include "CControl.h"
#include "CControlListener.h"
#include "VSTGUIEditorInterface.h"

#include <string>
#include <vector>

class RecordingListener : public CControlListener, public VSTGUIEditorInterface
{
  public:
    void valueChanged(CControl* control) override
    {
        values.push_back(control->getValue());
        events.push_back("value " + std::to_string(control->getTag()));
    }
    void beginEdit(int32_t index) override { events.push_back("begin " + std::to_string(index)); }
    void endEdit(int32_t index) override { events.push_back("end " + std::to_string(index)); }
    int32_t getKnobMode() const override { return 2; }
    CFrame* getFrame() const override { return nullptr; }

    std::vector<float> values;
    std::vector<std::string> events;
};
