// The CLAP edition's entry point: the framework's own, with what this framework version leaves out filled
// in. Its descriptor gets the product's version and home page, and its parameters show the texts the VST 2.4
// plug-in shows ("265.00", the mode-dependent width) instead of bare numbers, and its state is read whole
// before the framework parses it.
//
// The framework's entry is compiled under another name (see formats/Vst3AndClap.cmake). Each plug-in it
// creates is handed to the host as a copy whose get_extension and destroy are ours: the framework's
// functions find their instance through plugin_data, which the copy shares, so the host may call them with
// either pointer.
#include "DistrhoPluginInfo.h"
#include "ParameterTable.h"
#include "SpataraVersion.h"

#include "clap/entry.h"
#include "clap/ext/params.h"
#include "clap/ext/state.h"
#include "clap/plugin-factory.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <new>
#include <vector>

extern "C" const clap_plugin_entry_t spatara_framework_clap_entry;

namespace
{
struct Instance
{
    clap_plugin_t plugin; // first, so the host's pointer is the instance's
    const clap_plugin_t* framework;
};

const Instance& instanceOf(const clap_plugin_t* plugin)
{
    return *reinterpret_cast<const Instance*>(plugin);
}

const clap_plugin_factory_t* frameworkFactory()
{
    return static_cast<const clap_plugin_factory_t*>(
        spatara_framework_clap_entry.get_factory(CLAP_PLUGIN_FACTORY_ID));
}

const clap_plugin_params_t* frameworkParams(const clap_plugin_t* plugin)
{
    const clap_plugin_t* framework = instanceOf(plugin).framework;
    return static_cast<const clap_plugin_params_t*>(framework->get_extension(framework, CLAP_EXT_PARAMS));
}

// ---------------------------------------------------------------- parameters

uint32_t countParams(const clap_plugin_t* plugin)
{
    return frameworkParams(plugin)->count(plugin);
}

bool getParamInfo(const clap_plugin_t* plugin, uint32_t index, clap_param_info_t* info)
{
    return frameworkParams(plugin)->get_info(plugin, index, info);
}

bool getParamValue(const clap_plugin_t* plugin, clap_id id, double* value)
{
    return frameworkParams(plugin)->get_value(plugin, id, value);
}

bool valueToText(const clap_plugin_t* plugin, clap_id id, double value, char* display, uint32_t size)
{
    const clap_plugin_params_t* params = frameworkParams(plugin);
    if (!spatara::isParameter(static_cast<int>(id)) || size == 0)
        return params->value_to_text(plugin, id, value, display, size);
    // The width shows in the unit of the mode the effect runs; the mode shows the value asked about.
    double mode = std::round(value);
    if (id != kMode && !params->get_value(plugin, kMode, &mode)) return false;
    const spatara::ParameterInfo& info = spatara::parameterInfo(static_cast<int>(id));
    char text[32] = {};
    info.display(info.fromUnit(static_cast<float>(value)), static_cast<float>(mode), text);
    std::snprintf(display, size, "%s", text);
    return true;
}

bool textToValue(const clap_plugin_t* plugin, clap_id id, const char* display, double* value)
{
    return frameworkParams(plugin)->text_to_value(plugin, id, display, value);
}

void flushParams(const clap_plugin_t* plugin, const clap_input_events_t* in, const clap_output_events_t* out)
{
    frameworkParams(plugin)->flush(plugin, in, out);
}

const clap_plugin_params_t kParams = {countParams, getParamInfo, getParamValue,
                                      valueToText, textToValue,  flushParams};

// ---------------------------------------------------------------- state

// A project's state is the bank in base64 and six values: some 20 kB. Far more is not ours.
constexpr std::size_t kLargestState = 1 << 20;

const clap_plugin_state_t* frameworkState(const clap_plugin_t* plugin)
{
    const clap_plugin_t* framework = instanceOf(plugin).framework;
    return static_cast<const clap_plugin_state_t*>(framework->get_extension(framework, CLAP_EXT_STATE));
}

bool saveState(const clap_plugin_t* plugin, const clap_ostream_t* stream)
{
    return frameworkState(plugin)->save(plugin, stream);
}

struct WholeState
{
    std::vector<char> bytes;
    std::size_t at = 0;
};

int64_t readWhole(const clap_istream_t* stream, void* buffer, uint64_t size)
{
    auto* state = static_cast<WholeState*>(stream->ctx);
    const std::size_t n = std::min<std::size_t>(size, state->bytes.size() - state->at);
    std::memcpy(buffer, state->bytes.data() + state->at, n);
    state->at += n;
    return static_cast<int64_t>(n);
}

// The framework's parser goes wrong when a read gives less than it asked for before the end, which a host
// may do at any size: it is given the whole state from memory instead.
bool loadState(const clap_plugin_t* plugin, const clap_istream_t* stream)
{
    WholeState state;
    char piece[4096];
    for (int64_t n; (n = stream->read(stream, piece, sizeof piece)) != 0;)
    {
        if (n < 0 || state.bytes.size() + static_cast<std::size_t>(n) > kLargestState) return false;
        state.bytes.insert(state.bytes.end(), piece, piece + n);
    }
    const clap_istream_t whole{&state, readWhole};
    return frameworkState(plugin)->load(plugin, &whole);
}

const clap_plugin_state_t kState = {saveState, loadState};

// ---------------------------------------------------------------- the plug-in

const void* getExtension(const clap_plugin_t* plugin, const char* id)
{
    if (std::strcmp(id, CLAP_EXT_PARAMS) == 0) return &kParams;
    if (std::strcmp(id, CLAP_EXT_STATE) == 0) return &kState;
    const clap_plugin_t* framework = instanceOf(plugin).framework;
    return framework->get_extension(framework, id);
}

void destroy(const clap_plugin_t* plugin)
{
    const Instance* instance = &instanceOf(plugin);
    instance->framework->destroy(instance->framework);
    delete instance;
}

// ---------------------------------------------------------------- the factory

const clap_plugin_descriptor_t* describe(const clap_plugin_factory_t*, uint32_t index)
{
    const clap_plugin_descriptor_t* own =
        frameworkFactory()->get_plugin_descriptor(frameworkFactory(), index);
    if (!own) return nullptr;
    static const clap_plugin_descriptor_t filled = [own]
    {
        clap_plugin_descriptor_t descriptor = *own;
        descriptor.url = SPATARA_HOME_PAGE;
        descriptor.version = SPATARA_VERSION_STRING;
        return descriptor;
    }();
    return &filled;
}

uint32_t countPlugins(const clap_plugin_factory_t*)
{
    return frameworkFactory()->get_plugin_count(frameworkFactory());
}

const clap_plugin_t* create(const clap_plugin_factory_t* factory, const clap_host_t* host, const char* id)
{
    const clap_plugin_descriptor_t* descriptor = describe(factory, 0);
    if (!descriptor || !id || std::strcmp(id, descriptor->id) != 0) return nullptr;
    const clap_plugin_t* framework = frameworkFactory()->create_plugin(frameworkFactory(), host, id);
    if (!framework) return nullptr;
    auto* instance = new (std::nothrow) Instance{*framework, framework};
    if (!instance)
    {
        framework->destroy(framework);
        return nullptr;
    }
    instance->plugin.desc = descriptor;
    instance->plugin.get_extension = getExtension;
    instance->plugin.destroy = destroy;
    return &instance->plugin;
}

const clap_plugin_factory_t kFactory = {countPlugins, describe, create};

// ---------------------------------------------------------------- the entry

bool init(const char* path)
{
    return spatara_framework_clap_entry.init(path);
}

void deinit()
{
    spatara_framework_clap_entry.deinit();
}

const void* getFactory(const char* id)
{
    if (std::strcmp(id, CLAP_PLUGIN_FACTORY_ID) == 0) return &kFactory;
    return spatara_framework_clap_entry.get_factory(id);
}
} // namespace

extern "C" CLAP_EXPORT const clap_plugin_entry_t clap_entry = {CLAP_VERSION_INIT, init, deinit, getFactory};
