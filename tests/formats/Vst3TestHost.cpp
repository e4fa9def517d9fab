#include "Vst3TestHost.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <dlfcn.h>

namespace
{
using ModuleEntry = bool (*)(void*);
using ModuleExit = bool (*)();
using GetPluginFactory = v3_plugin_factory** (*)();

std::string fromUtf16(const int16_t* text, std::size_t size)
{
    std::string result;
    for (std::size_t i = 0; i < size && text[i] != 0; ++i)
        result += text[i] > 0 && text[i] < 128 ? static_cast<char>(text[i]) : '?';
    return result;
}
constexpr int32_t kBlock = 64;

// ---- changes of parameters at the start of a block, as the host's list of changes: objects are pointers to
// their tables of functions, each table the three of funknown first
struct Change
{
    v3_funknown unknown;
    v3_param_value_queue queue;
    v3_param_id id;
    double value;
};
struct Changes
{
    v3_funknown unknown;
    v3_param_changes changes;
    std::vector<Change*> list;
};

v3_result V3_API noInterface(void*, const v3_tuid, void** iface)
{
    *iface = nullptr;
    return V3_NO_INTERFACE;
}
uint32_t V3_API onStack(void*)
{
    return 1;
}
v3_param_id V3_API changedId(void* self)
{
    return (*static_cast<Change**>(self))->id;
}
int32_t V3_API one(void*)
{
    return 1;
}
v3_result V3_API pointAt(void* self, int32_t index, int32_t* offset, double* value)
{
    if (index != 0) return V3_INVALID_ARG;
    *offset = 0;
    *value = (*static_cast<Change**>(self))->value;
    return V3_OK;
}
v3_result V3_API refuseAddPoint(void*, int32_t, double, int32_t*)
{
    return V3_NOT_IMPLEMENTED;
}
int32_t V3_API changeCount(void* self)
{
    return static_cast<int32_t>((*static_cast<Changes**>(self))->list.size());
}
v3_param_value_queue** V3_API changeAt(void* self, int32_t index)
{
    const std::vector<Change*>& list = (*static_cast<Changes**>(self))->list;
    return index >= 0 && index < static_cast<int32_t>(list.size())
               ? reinterpret_cast<v3_param_value_queue**>(&(*static_cast<Changes**>(self))->list[index])
               : nullptr;
}
v3_param_value_queue** V3_API refuseAddChange(void*, v3_param_id*, int32_t*)
{
    return nullptr;
}

// ---- the host application, which the effect asks for before it makes an editor view: a name, and no
// objects of the host's
v3_result V3_API hostInterface(void* self, const v3_tuid iid, void** iface)
{
    if (v3_tuid_match(iid, v3_funknown_iid) || v3_tuid_match(iid, v3_host_application_iid))
    {
        *iface = self;
        return V3_OK;
    }
    *iface = nullptr;
    return V3_NO_INTERFACE;
}
v3_result V3_API hostName(void*, v3_str_128 name)
{
    const char text[] = "Spatara test host";
    for (std::size_t i = 0; i < sizeof(text); ++i)
        name[i] = static_cast<int16_t>(text[i]);
    return V3_OK;
}
v3_result V3_API noHostObjects(void*, v3_tuid, v3_tuid, void** object)
{
    *object = nullptr;
    return V3_NOT_IMPLEMENTED;
}
v3_host_application_cpp hostApplicationObject{{hostInterface, onStack, onStack}, {hostName, noHostObjects}};
v3_host_application_cpp* hostApplication = &hostApplicationObject;
} // namespace

std::unique_ptr<Vst3TestHost> Vst3TestHost::load(const std::string& path, std::string& error)
{
    std::unique_ptr<Vst3TestHost> host(new Vst3TestHost);
    if (!host->create(path, error)) return nullptr;
    return host;
}

bool Vst3TestHost::create(const std::string& path, std::string& error)
{
    library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!library)
    {
        error = dlerror();
        return false;
    }
    auto entry = reinterpret_cast<ModuleEntry>(dlsym(library, "ModuleEntry"));
    auto getFactory = reinterpret_cast<GetPluginFactory>(dlsym(library, "GetPluginFactory"));
    if (!entry || !getFactory || !entry(library))
    {
        error = "no VST3 module entry";
        return false;
    }
    factory = getFactory();
    if (!factory)
    {
        error = "no factory";
        return false;
    }
    v3_class_info info{};
    if (v3_cpp_obj(factory)->num_classes(factory) < 1 ||
        v3_cpp_obj(factory)->get_class_info(factory, 0, &info) != V3_OK)
    {
        error = "the factory lists no class";
        return false;
    }
    if (v3_cpp_obj(factory)->create_instance(factory, info.class_id, v3_component_iid,
                                             reinterpret_cast<void**>(&component)) != V3_OK ||
        !component)
    {
        error = "the factory creates no component";
        return false;
    }
    auto** context = reinterpret_cast<v3_funknown**>(&hostApplication);
    if (v3_cpp_obj_initialize(component, context) != V3_OK)
    {
        error = "the component does not initialise";
        return false;
    }
    if (v3_cpp_obj_query_interface(component, v3_edit_controller_iid, &editController) != V3_OK ||
        !editController)
    {
        error = "the component is not its own edit controller";
        return false;
    }
    if (v3_cpp_obj_initialize(editController, context) != V3_OK)
    {
        error = "the edit controller does not initialise";
        return false;
    }
    if (v3_cpp_obj_query_interface(component, v3_audio_processor_iid, &processor) != V3_OK || !processor)
    {
        error = "the component has no audio processor";
        return false;
    }
    v3_process_setup setup{V3_REALTIME, V3_SAMPLE_32, kBlock, 44100.0};
    if (v3_cpp_obj(processor)->setup_processing(processor, &setup) != V3_OK ||
        v3_cpp_obj(component)->set_active(component, true) != V3_OK)
    {
        error = "the audio processor does not start";
        return false;
    }
    v3_cpp_obj(processor)->set_processing(processor, true);
    return true;
}

Vst3TestHost::~Vst3TestHost()
{
    if (processor)
    {
        v3_cpp_obj(processor)->set_processing(processor, false);
        v3_cpp_obj(component)->set_active(component, false);
        v3_cpp_obj_unref(processor);
    }
    if (editController)
    {
        v3_cpp_obj_terminate(editController);
        v3_cpp_obj_unref(editController);
    }
    if (component)
    {
        v3_cpp_obj_terminate(component);
        v3_cpp_obj_unref(component);
    }
    if (factory) v3_cpp_obj_unref(factory);
    if (library)
    {
        if (auto exit = reinterpret_cast<ModuleExit>(dlsym(library, "ModuleExit"))) exit();
        dlclose(library);
    }
}

v3_param_id Vst3TestHost::parameterId(const std::string& title) const
{
    const int32_t count = controller()->get_parameter_count(editController);
    for (int32_t i = 0; i < count; ++i)
    {
        v3_param_info info{};
        if (controller()->get_parameter_info(editController, i, &info) == V3_OK &&
            fromUtf16(info.title, 128) == title)
            return info.param_id;
    }
    ADD_FAILURE() << "no parameter " << title;
    return 0;
}

double Vst3TestHost::normalised(v3_param_id id, double plain) const
{
    return controller()->plain_parameter_to_normalised(editController, id, plain);
}

void Vst3TestHost::automate(v3_param_id id, double value)
{
    std::array<float, kBlock> silence{}, left{}, right{};
    process(silence.data(), silence.data(), left.data(), right.data(), kBlock, {{id, value}});
}

void Vst3TestHost::process(const float* inL, const float* inR, float* outL, float* outR, uint32_t frames,
                           const std::vector<std::pair<v3_param_id, double>>& changesAtStart)
{
    std::vector<Change> changed;
    for (const auto& [id, value] : changesAtStart)
        changed.push_back(
            Change{{noInterface, onStack, onStack}, {changedId, one, pointAt, refuseAddPoint}, id, value});
    Changes changes{{noInterface, onStack, onStack}, {changeCount, changeAt, refuseAddChange}, {}};
    for (Change& change : changed)
        changes.list.push_back(&change);
    Changes* changesObject = &changes;
    for (uint32_t done = 0; done < frames; done += kBlock)
    {
        const auto n = static_cast<int32_t>(std::min<uint32_t>(kBlock, frames - done));
        float* in[2] = {const_cast<float*>(inL + done), const_cast<float*>(inR + done)};
        float* out[2] = {outL + done, outR + done};
        v3_audio_bus_buffers inputs{2, 0, {in}};
        v3_audio_bus_buffers outputs{2, 0, {out}};
        v3_process_data data{V3_REALTIME, V3_SAMPLE_32, n,       1,       1,       &inputs,
                             &outputs,    nullptr,      nullptr, nullptr, nullptr, nullptr};
        if (done == 0) data.input_params = reinterpret_cast<v3_param_changes**>(&changesObject);
        ASSERT_EQ(v3_cpp_obj(processor)->process(processor, &data), V3_OK) << "at frame " << done;
    }
}

bool Vst3TestHost::editorSize(float contentScale, int& width, int& height) const
{
    v3_plugin_view** view = controller()->create_view(editController, "editor");
    if (!view) return false;
    if (contentScale > 0.0f)
    {
        v3_plugin_view_content_scale** scale = nullptr;
        if (v3_cpp_obj_query_interface(view, v3_plugin_view_content_scale_iid, &scale) == V3_OK && scale)
        {
            v3_cpp_obj(scale)->set_content_scale_factor(scale, contentScale);
            v3_cpp_obj_unref(scale);
        }
    }
    v3_view_rect rect{};
    const bool sized = v3_cpp_obj(view)->get_size(view, &rect) == V3_OK;
    width = rect.right - rect.left;
    height = rect.bottom - rect.top;
    v3_cpp_obj_unref(view);
    return sized;
}

std::string Vst3TestHost::text(v3_param_id id, double value) const
{
    v3_str_128 output{};
    if (controller()->get_parameter_string_for_value(editController, id, value, output) != V3_OK)
        return "<refused>";
    return fromUtf16(output, 128);
}
