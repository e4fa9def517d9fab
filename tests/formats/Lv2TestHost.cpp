#include "Lv2TestHost.h"

#include <lv2/atom/atom.h>
#include <lv2/buf-size/buf-size.h>
#include <lv2/parameters/parameters.h>
#include <lv2/presets/presets.h>
#include <lv2/state/state.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <dlfcn.h>
#include <lv2/instance-access/instance-access.h>

namespace
{
constexpr std::size_t kAtomCapacity = 8192;
const char* const kRdfsLabel = "http://www.w3.org/2000/01/rdf-schema#label";

LV2_Worker_Status refuseWork(LV2_Worker_Schedule_Handle, uint32_t, const void*)
{
    return LV2_WORKER_ERR_UNKNOWN; // nothing here runs work; the plug-in must not need it to process
}

struct StateCollector
{
    std::map<std::string, std::string>* values;
    const LV2_URID_Unmap* unmap;
};

LV2_State_Status collect(LV2_State_Handle handle, uint32_t key, const void* value, size_t size, uint32_t,
                         uint32_t)
{
    auto* collector = static_cast<StateCollector*>(handle);
    const char* text = static_cast<const char*>(value);
    // Strings are stored with their terminator.
    const std::size_t length = size > 0 && text[size - 1] == '\0' ? size - 1 : size;
    (*collector->values)[collector->unmap->unmap(collector->unmap->handle, key)] = std::string(text, length);
    return LV2_STATE_SUCCESS;
}
} // namespace

std::unique_ptr<Lv2TestHost> Lv2TestHost::load(const std::string& bundle, const std::string& uri,
                                               double sampleRate, uint32_t blockSize, std::string& error,
                                               bool offerWorker)
{
    std::unique_ptr<Lv2TestHost> host(new Lv2TestHost());
    host->workerOffered = offerWorker;
    host->rate = sampleRate;
    host->block = blockSize;
    host->blockOption = static_cast<std::int32_t>(blockSize);
    host->rateOption = static_cast<float>(sampleRate);
    if (!host->instantiate(bundle, uri, error)) return nullptr;
    return host;
}

bool Lv2TestHost::instantiate(const std::string& bundle, const std::string& uri, std::string& error)
{
    world = lilv_world_new();
    std::string folder = bundle;
    if (folder.empty() || folder.back() != '/') folder += '/';
    LilvNode* bundleNode = lilv_new_file_uri(world, nullptr, folder.c_str());
    lilv_world_load_specifications(world);
    lilv_world_load_plugin_classes(world);
    lilv_world_load_bundle(world, bundleNode);
    lilv_node_free(bundleNode);
    LilvNode* uriNode = lilv_new_uri(world, uri.c_str());
    plugin = lilv_plugins_get_by_uri(lilv_world_get_all_plugins(world), uriNode);
    lilv_node_free(uriNode);
    if (!plugin)
    {
        error = "no plug-in " + uri + " in " + bundle;
        return false;
    }

    mapFeature = {this, &Lv2TestHost::mapUri};
    unmapFeature = {this, &Lv2TestHost::unmapUri};
    workerFeature = {this, refuseWork};
    const LV2_URID atomInt = map(LV2_ATOM__Int), atomFloat = map(LV2_ATOM__Float);
    options = {
        {LV2_OPTIONS_INSTANCE, 0, map(LV2_BUF_SIZE__maxBlockLength), sizeof(blockOption), atomInt,
         &blockOption},
        {LV2_OPTIONS_INSTANCE, 0, map(LV2_BUF_SIZE__nominalBlockLength), sizeof(blockOption), atomInt,
         &blockOption},
        {LV2_OPTIONS_INSTANCE, 0, map(LV2_PARAMETERS__sampleRate), sizeof(rateOption), atomFloat,
         &rateOption},
        {LV2_OPTIONS_INSTANCE, 0, 0, 0, 0, nullptr},
    };
    featureRecords = {{LV2_URID__map, &mapFeature},
                      {LV2_URID__unmap, &unmapFeature},
                      {LV2_WORKER__schedule, &workerFeature},
                      {LV2_OPTIONS__options, options.data()},
                      {LV2_BUF_SIZE__boundedBlockLength, nullptr}};
    for (const LV2_Feature& feature : featureRecords)
        if (workerOffered || std::string(feature.URI) != LV2_WORKER__schedule) features.push_back(&feature);
    features.push_back(nullptr);

    instance = lilv_plugin_instantiate(plugin, rate, features.data());
    if (!instance)
    {
        error = "the plug-in refused to instantiate";
        return false;
    }

    LilvNode* audioClass = lilv_new_uri(world, LILV_URI_AUDIO_PORT);
    LilvNode* controlClass = lilv_new_uri(world, LILV_URI_CONTROL_PORT);
    LilvNode* atomClass = lilv_new_uri(world, LV2_ATOM__AtomPort);
    LilvNode* inputClass = lilv_new_uri(world, LILV_URI_INPUT_PORT);
    const uint32_t count = lilv_plugin_get_num_ports(plugin);
    controls.assign(count, 0.0f);
    std::vector<float> defaults(count, 0.0f);
    lilv_plugin_get_port_ranges_float(plugin, nullptr, nullptr, defaults.data());
    for (uint32_t i = 0; i < count; ++i)
    {
        const LilvPort* port = lilv_plugin_get_port_by_index(plugin, i);
        portBySymbol[lilv_node_as_string(lilv_port_get_symbol(plugin, port))] = i;
        const bool input = lilv_port_is_a(plugin, port, inputClass);
        if (lilv_port_is_a(plugin, port, audioClass))
            (input ? audioIn : audioOut).push_back(i);
        else if (lilv_port_is_a(plugin, port, atomClass))
            (input ? atomIn : atomOut).push_back(i);
        else if (lilv_port_is_a(plugin, port, controlClass))
        {
            controls[i] = std::isnan(defaults[i]) ? 0.0f : defaults[i];
            controlPorts.push_back(i);
            lilv_instance_connect_port(instance, i, &controls[i]);
        }
    }
    for (LilvNode* node : {audioClass, controlClass, atomClass, inputClass})
        lilv_node_free(node);

    audioBuffers.assign(audioIn.size() + audioOut.size(), std::vector<float>(block, 0.0f));
    for (std::size_t i = 0; i < audioIn.size(); ++i)
        lilv_instance_connect_port(instance, audioIn[i], audioBuffers[i].data());
    for (std::size_t i = 0; i < audioOut.size(); ++i)
        lilv_instance_connect_port(instance, audioOut[i], audioBuffers[audioIn.size() + i].data());
    atomBuffers.assign(atomIn.size() + atomOut.size(), std::vector<uint64_t>(kAtomCapacity / 8, 0));
    for (std::size_t i = 0; i < atomIn.size(); ++i)
        lilv_instance_connect_port(instance, atomIn[i], atomBuffers[i].data());
    for (std::size_t i = 0; i < atomOut.size(); ++i)
        lilv_instance_connect_port(instance, atomOut[i], atomBuffers[atomIn.size() + i].data());
    return true;
}

Lv2TestHost::~Lv2TestHost()
{
    closeEditor();
    if (instance)
    {
        if (active) lilv_instance_deactivate(instance);
        lilv_instance_free(instance);
    }
    if (world) lilv_world_free(world);
}

LV2_URID Lv2TestHost::map(const char* uri)
{
    const auto found = std::find(uris.begin(), uris.end(), uri);
    if (found != uris.end()) return static_cast<LV2_URID>(found - uris.begin() + 1);
    uris.emplace_back(uri);
    return static_cast<LV2_URID>(uris.size());
}

LV2_URID Lv2TestHost::mapUri(LV2_URID_Map_Handle handle, const char* uri)
{
    return static_cast<Lv2TestHost*>(handle)->map(uri);
}

const char* Lv2TestHost::unmapUri(LV2_URID_Unmap_Handle handle, LV2_URID urid)
{
    const auto& all = static_cast<Lv2TestHost*>(handle)->uris;
    return urid >= 1 && urid <= all.size() ? all[urid - 1].c_str() : nullptr;
}

bool Lv2TestHost::hasPort(const std::string& symbol) const
{
    return portBySymbol.count(symbol) != 0;
}

void Lv2TestHost::setControl(const std::string& symbol, float value)
{
    controls.at(portBySymbol.at(symbol)) = value;
}

float Lv2TestHost::control(const std::string& symbol) const
{
    return controls.at(portBySymbol.at(symbol));
}

std::string Lv2TestHost::portUnit(const std::string& symbol) const
{
    LilvNode* unitProperty = lilv_new_uri(world, "http://lv2plug.in/ns/extensions/units#unit");
    const LilvPort* port = lilv_plugin_get_port_by_index(plugin, portBySymbol.at(symbol));
    LilvNodes* units = lilv_port_get_value(plugin, port, unitProperty);
    const std::string unit =
        units && lilv_nodes_size(units) ? lilv_node_as_uri(lilv_nodes_get_first(units)) : "";
    lilv_nodes_free(units);
    lilv_node_free(unitProperty);
    return unit;
}

std::vector<std::pair<float, std::string>> Lv2TestHost::scalePoints(const std::string& symbol) const
{
    std::vector<std::pair<float, std::string>> points;
    const LilvPort* port = lilv_plugin_get_port_by_index(plugin, portBySymbol.at(symbol));
    LilvScalePoints* all = lilv_port_get_scale_points(plugin, port);
    LILV_FOREACH(scale_points, i, all)
    {
        const LilvScalePoint* point = lilv_scale_points_get(all, i);
        points.emplace_back(lilv_node_as_float(lilv_scale_point_get_value(point)),
                            lilv_node_as_string(lilv_scale_point_get_label(point)));
    }
    lilv_scale_points_free(all);
    std::sort(points.begin(), points.end());
    return points;
}

void Lv2TestHost::resetAtomPorts()
{
    const LV2_URID sequence = map(LV2_ATOM__Sequence), chunk = map(LV2_ATOM__Chunk);
    for (std::size_t i = 0; i < atomBuffers.size(); ++i)
    {
        auto* atom = reinterpret_cast<LV2_Atom_Sequence*>(atomBuffers[i].data());
        const bool input = i < atomIn.size();
        // An empty sequence in, the whole capacity offered out.
        atom->atom.type = input ? sequence : chunk;
        atom->atom.size =
            input ? sizeof(LV2_Atom_Sequence_Body) : static_cast<uint32_t>(kAtomCapacity - sizeof(LV2_Atom));
        atom->body.unit = 0;
        atom->body.pad = 0;
    }
}

void Lv2TestHost::process(const float* inL, const float* inR, float* outL, float* outR, uint32_t frames)
{
    run(inL, inR, outL, outR, frames, false);
}

void Lv2TestHost::processMono(const float* in, float* outL, float* outR, uint32_t frames)
{
    run(in, in, outL, outR, frames, true);
}

void Lv2TestHost::run(const float* inL, const float* inR, float* outL, float* outR, uint32_t frames,
                      bool mono)
{
    if (!active)
    {
        lilv_instance_activate(instance);
        active = true;
    }
    lilv_instance_connect_port(instance, audioIn[1], audioBuffers[mono ? 0 : 1].data());
    const std::size_t outs = audioIn.size();
    for (uint32_t done = 0; done < frames;)
    {
        const uint32_t n = std::min(block, frames - done);
        std::copy(inL + done, inL + done + n, audioBuffers[0].begin());
        std::copy(inR + done, inR + done + n, audioBuffers[1].begin());
        resetAtomPorts();
        lilv_instance_run(instance, n);
        std::copy(audioBuffers[outs].begin(), audioBuffers[outs].begin() + n, outL + done);
        std::copy(audioBuffers[outs + 1].begin(), audioBuffers[outs + 1].begin() + n, outR + done);
        done += n;
    }
}

void Lv2TestHost::forEachPreset(const std::function<void(const LilvNode*, const std::string&)>& visit) const
{
    LilvNode* presetClass = lilv_new_uri(world, LV2_PRESETS__Preset);
    LilvNode* label = lilv_new_uri(world, kRdfsLabel);
    LilvNodes* presets = lilv_plugin_get_related(plugin, presetClass);
    LILV_FOREACH(nodes, i, presets)
    {
        const LilvNode* preset = lilv_nodes_get(presets, i);
        lilv_world_load_resource(world, preset);
        if (LilvNode* name = lilv_world_get(world, preset, label, nullptr))
        {
            visit(preset, lilv_node_as_string(name));
            lilv_node_free(name);
        }
    }
    lilv_nodes_free(presets);
    lilv_node_free(label);
    lilv_node_free(presetClass);
}

std::vector<std::string> Lv2TestHost::presetLabels() const
{
    std::vector<std::string> labels;
    forEachPreset([&](const LilvNode*, const std::string& name) { labels.push_back(name); });
    return labels;
}

bool Lv2TestHost::loadPreset(const std::string& wanted)
{
    bool loaded = false;
    forEachPreset(
        [&](const LilvNode* preset, const std::string& name)
        {
            if (loaded || name != wanted) return;
            if (LilvState* state = lilv_state_new_from_world(world, &mapFeature, preset))
            {
                lilv_state_restore(state, instance, &Lv2TestHost::setPortValue, this, 0, features.data());
                lilv_state_free(state);
                loaded = true;
            }
        });
    return loaded;
}

const void* Lv2TestHost::portValue(const char* symbol, void* self, uint32_t* size, uint32_t* type)
{
    auto* host = static_cast<Lv2TestHost*>(self);
    const auto found = host->portBySymbol.find(symbol);
    if (found == host->portBySymbol.end() || std::find(host->controlPorts.begin(), host->controlPorts.end(),
                                                       found->second) == host->controlPorts.end())
        return nullptr;
    *size = sizeof(float);
    *type = host->map(LV2_ATOM__Float);
    return &host->controls[found->second];
}

void Lv2TestHost::setPortValue(const char* symbol, void* self, const void* value, uint32_t size,
                               uint32_t type)
{
    auto* host = static_cast<Lv2TestHost*>(self);
    const auto found = host->portBySymbol.find(symbol);
    if (found == host->portBySymbol.end()) return;
    float v = 0.0f;
    if (type == host->map(LV2_ATOM__Float) && size == sizeof(float))
        std::memcpy(&v, value, sizeof v);
    else if (type == host->map(LV2_ATOM__Double) && size == sizeof(double))
        v = static_cast<float>(*static_cast<const double*>(value));
    else if ((type == host->map(LV2_ATOM__Int) || type == host->map(LV2_ATOM__Bool)) &&
             size == sizeof(int32_t))
        v = static_cast<float>(*static_cast<const int32_t*>(value));
    else
        return;
    host->controls[found->second] = v;
}

std::string Lv2TestHost::saveState()
{
    LilvState* state = lilv_state_new_from_instance(
        plugin, instance, &mapFeature, nullptr, nullptr, nullptr, nullptr, &Lv2TestHost::portValue, this,
        LV2_STATE_IS_POD | LV2_STATE_IS_PORTABLE, features.data());
    if (!state) return std::string();
    char* text =
        lilv_state_to_string(world, &mapFeature, &unmapFeature, state, "urn:spatara-test:state", nullptr);
    std::string result = text ? text : "";
    lilv_free(text);
    lilv_state_free(state);
    return result;
}

bool Lv2TestHost::saveUserPreset(const std::string& folder, const std::string& label)
{
    LilvState* state = lilv_state_new_from_instance(
        plugin, instance, &mapFeature, nullptr, nullptr, nullptr, nullptr, &Lv2TestHost::portValue, this,
        LV2_STATE_IS_POD | LV2_STATE_IS_PORTABLE, features.data());
    if (!state) return false;
    lilv_state_set_label(state, label.c_str());
    const int failed =
        lilv_state_save(world, &mapFeature, &unmapFeature, state,
                        ("urn:spatara-test:preset:" + label).c_str(), folder.c_str(), "preset.ttl");
    lilv_state_free(state);
    return failed == 0;
}

bool Lv2TestHost::loadUserPreset(const std::string& folder, const std::string& label)
{
    // As a host finds it: its bundle joins the world, and it is one of the plug-in's presets.
    LilvNode* bundle = lilv_new_file_uri(world, nullptr, (folder + "/").c_str());
    lilv_world_load_bundle(world, bundle);
    lilv_node_free(bundle);
    return loadPreset(label);
}

bool Lv2TestHost::restoreState(const std::string& text)
{
    LilvState* state = lilv_state_new_from_string(world, &mapFeature, text.c_str());
    if (!state) return false;
    lilv_state_restore(state, instance, &Lv2TestHost::setPortValue, this, 0, features.data());
    lilv_state_free(state);
    return true;
}

std::map<std::string, std::string> Lv2TestHost::stateValues()
{
    std::map<std::string, std::string> values;
    const auto* iface = static_cast<const LV2_State_Interface*>(
        lilv_instance_get_extension_data(instance, LV2_STATE__interface));
    if (!iface) return values;
    StateCollector collector{&values, &unmapFeature};
    iface->save(lilv_instance_get_handle(instance), collect, &collector,
                LV2_STATE_IS_POD | LV2_STATE_IS_PORTABLE, features.data());
    return values;
}

bool Lv2TestHost::openEditor(unsigned long parent, float scaleFactor, std::string& error)
{
    const LilvNode* binary = lilv_plugin_get_library_uri(plugin);
    char* path = lilv_file_uri_parse(lilv_node_as_uri(binary), nullptr);
    uiLibrary = path ? dlopen(path, RTLD_NOW | RTLD_LOCAL) : nullptr;
    lilv_free(path);
    using UiDescriptorFunction = const LV2UI_Descriptor* (*)(uint32_t);
    const auto describe =
        uiLibrary ? reinterpret_cast<UiDescriptorFunction>(dlsym(uiLibrary, "lv2ui_descriptor")) : nullptr;
    uiDescriptor = describe ? describe(0) : nullptr;
    if (!uiDescriptor)
    {
        error = "the bundle's binary has no editor";
        return false;
    }
    uiScaleFactor = scaleFactor;
    const LV2_URID atomFloat = map(LV2_ATOM__Float);
    uiOptions.clear();
    if (scaleFactor > 0.0f)
        uiOptions.push_back(
            {LV2_OPTIONS_INSTANCE, 0, map(LV2_UI__scaleFactor), sizeof(float), atomFloat, &uiScaleFactor});
    uiOptions.push_back({LV2_OPTIONS_INSTANCE, 0, 0, 0, 0, nullptr});
    const LV2_Descriptor* pluginDescriptor = lilv_instance_get_descriptor(instance);
    dataAccess.data_access = pluginDescriptor->extension_data;
    const LV2_Feature parentFeature{LV2_UI__parent, reinterpret_cast<void*>(parent)};
    const LV2_Feature instanceFeature{LV2_INSTANCE_ACCESS_URI, lilv_instance_get_handle(instance)};
    const LV2_Feature dataFeature{LV2_DATA_ACCESS_URI, &dataAccess};
    const LV2_Feature mapUi{LV2_URID__map, &mapFeature};
    const LV2_Feature optionsFeature{LV2_OPTIONS__options, uiOptions.data()};
    const LV2_Feature* uiFeatures[] = {&parentFeature, &instanceFeature, &dataFeature,
                                       &mapUi,         &optionsFeature,  nullptr};
    LV2UI_Widget widget = nullptr;
    char* bundle = lilv_file_uri_parse(lilv_node_as_uri(lilv_plugin_get_bundle_uri(plugin)), nullptr);
    ui = uiDescriptor->instantiate(
        uiDescriptor, lilv_node_as_uri(lilv_plugin_get_uri(plugin)), bundle,
        [](LV2UI_Controller, uint32_t, uint32_t, uint32_t, const void*) {}, this, &widget, uiFeatures);
    lilv_free(bundle);
    if (!ui) error = "the editor could not be made";
    return ui != nullptr;
}

void Lv2TestHost::idleEditor()
{
    if (!ui || !uiDescriptor->extension_data) return;
    if (const auto* idle =
            static_cast<const LV2UI_Idle_Interface*>(uiDescriptor->extension_data(LV2_UI__idleInterface)))
        idle->idle(ui);
}

void Lv2TestHost::closeEditor()
{
    if (ui) uiDescriptor->cleanup(ui);
    ui = nullptr;
    if (uiLibrary) dlclose(uiLibrary);
    uiLibrary = nullptr;
}
