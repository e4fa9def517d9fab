// The VST3 edition's factory entry: the framework's own, with the value texts it writes as bare numbers
// ("265.000000") replaced by the texts the VST 2.4 plug-in shows ("265.00", the mode-dependent width).
//
// The framework's entry is compiled under another name (see formats/Vst3Framework.cpp). Each object the
// framework hands a host carries its own table of functions: the factory, each component it creates and
// that component's edit controller get ours where we answer ourselves and keep the framework's for the
// rest. The host so holds the framework's own objects, whichever of their interfaces it asks for.
#include "ParameterTable.h"

#include "travesty/base.h"
#include "travesty/component.h"
#include "travesty/edit_controller.h"
#include "travesty/factory.h"

#include <atomic>
#include <cstddef>

extern "C" const void* spatara_framework_vst3_factory(void);

namespace
{
using CreateInstance = decltype(v3_plugin_factory::create_instance);
using QueryInterface = decltype(v3_funknown::query_interface);
using StringForValue = decltype(v3_edit_controller::get_parameter_string_for_value);

// The framework's function of a kind is the same for all its objects: the one the first object had.
std::atomic<CreateInstance> frameworkCreateInstance{nullptr};
std::atomic<QueryInterface> frameworkComponentInterface{nullptr};
std::atomic<StringForValue> frameworkStringForValue{nullptr};

template <typename Function> void answer(Function& slot, Function ours, std::atomic<Function>& framework)
{
    if (slot == ours) return;
    framework.store(slot);
    slot = ours;
}

// ---------------------------------------------------------------- the edit controller

v3_result V3_API stringForValue(void* self, v3_param_id id, double normalised, v3_str_128 output)
{
    const int index = static_cast<int>(id);
    if (!spatara::isParameter(index) || !(normalised >= 0.0 && normalised <= 1.0))
        return frameworkStringForValue.load()(self, id, normalised, output);
    v3_edit_controller* controller = v3_cpp_obj(static_cast<v3_edit_controller**>(self));
    // The width shows in the unit of the mode the effect runs; the mode shows the value asked about.
    const double modeValue = index == kMode ? normalised : controller->get_parameter_normalised(self, kMode);
    const double mode = controller->normalised_parameter_to_plain(self, kMode, modeValue);
    const double value = controller->normalised_parameter_to_plain(self, id, normalised);
    const spatara::ParameterInfo& info = spatara::parameterInfo(index);
    char text[32] = {};
    info.display(info.fromUnit(static_cast<float>(value)), static_cast<float>(mode), text);
    std::size_t i = 0;
    for (; i + 1 < sizeof(v3_str_128) / sizeof(int16_t) && text[i] != '\0'; ++i)
        output[i] = static_cast<unsigned char>(text[i]);
    output[i] = 0;
    return V3_OK;
}

// ---------------------------------------------------------------- the component, its own edit controller

v3_result V3_API componentInterface(void* self, const v3_tuid iid, void** iface)
{
    const v3_result result = frameworkComponentInterface.load()(self, iid, iface);
    if (result == V3_OK && v3_tuid_match(iid, v3_edit_controller_iid))
    {
        auto** controller = static_cast<v3_edit_controller**>(*iface);
        answer(v3_cpp_obj(controller)->get_parameter_string_for_value, stringForValue,
               frameworkStringForValue);
    }
    return result;
}

// ---------------------------------------------------------------- the factory

// The factory creates nothing but the component: the effect is its own edit controller.
v3_result V3_API createInstance(void* self, const v3_tuid classId, const v3_tuid iid, void** instance)
{
    const v3_result result = frameworkCreateInstance.load()(self, classId, iid, instance);
    if (result == V3_OK)
    {
        auto* component = static_cast<v3_funknown*>(*static_cast<void**>(*instance));
        answer(component->query_interface, componentInterface, frameworkComponentInterface);
    }
    return result;
}
} // namespace

extern "C" __attribute__((visibility("default"))) const void* GetPluginFactory(void)
{
    auto** factory = static_cast<v3_plugin_factory**>(const_cast<void*>(spatara_framework_vst3_factory()));
    if (factory) answer(v3_cpp_obj(factory)->create_instance, createInstance, frameworkCreateInstance);
    return factory;
}
