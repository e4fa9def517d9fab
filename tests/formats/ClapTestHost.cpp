#include "ClapTestHost.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <dlfcn.h>

namespace
{
// ---- the host's side: requests are ignored (the tests drive everything themselves), the editor may ask
// for nothing but timers
void hostRequest(const clap_host_t*) {}
void hintsChanged(const clap_host_t*) {}
bool refuseRequest(const clap_host_t*)
{
    return false;
}
void editorClosed(const clap_host_t*, bool) {}

// ---- event lists over a vector of parameter events
uint32_t eventCount(const clap_input_events_t* list)
{
    return static_cast<uint32_t>(
        static_cast<const std::vector<clap_event_param_value_t>*>(list->ctx)->size());
}
const clap_event_header_t* eventAt(const clap_input_events_t* list, uint32_t index)
{
    return &(*static_cast<const std::vector<clap_event_param_value_t>*>(list->ctx))[index].header;
}
// The plug-in's output events: parameter values are kept (the editor's edits, the meter), the rest dropped.
bool keepEvent(const clap_output_events_t* list, const clap_event_header_t* event)
{
    if (event->space_id == CLAP_CORE_EVENT_SPACE_ID && event->type == CLAP_EVENT_PARAM_VALUE &&
        event->size >= sizeof(clap_event_param_value_t))
    {
        const auto* value = reinterpret_cast<const clap_event_param_value_t*>(event);
        static_cast<std::vector<std::pair<clap_id, double>>*>(list->ctx)->emplace_back(value->param_id,
                                                                                       value->value);
    }
    return true;
}

// ---- streams over a byte vector; reading hands out at most 100 bytes at a time, as hosts may
struct Reading
{
    const std::vector<uint8_t>* bytes;
    std::size_t at;
};
int64_t writeBytes(const clap_ostream_t* stream, const void* buffer, uint64_t size)
{
    auto* bytes = static_cast<std::vector<uint8_t>*>(stream->ctx);
    const auto* from = static_cast<const uint8_t*>(buffer);
    bytes->insert(bytes->end(), from, from + size);
    return static_cast<int64_t>(size);
}
int64_t readBytes(const clap_istream_t* stream, void* buffer, uint64_t size)
{
    auto* reading = static_cast<Reading*>(stream->ctx);
    const std::size_t n = std::min<std::size_t>({size, 100, reading->bytes->size() - reading->at});
    std::memcpy(buffer, reading->bytes->data() + reading->at, n);
    reading->at += n;
    return static_cast<int64_t>(n);
}
} // namespace

ClapTestHost::ClapTestHost()
{
    host.clap_version = CLAP_VERSION;
    host.host_data = this;
    host.name = "Spatara test host";
    host.vendor = "ZEV Sound Design";
    host.url = "https://zev-sound.example";
    host.version = "1";
    host.get_extension = &ClapTestHost::hostExtension;
    host.request_restart = hostRequest;
    host.request_process = hostRequest;
    host.request_callback = hostRequest;
}

std::unique_ptr<ClapTestHost> ClapTestHost::load(const std::string& path, double sampleRate,
                                                 uint32_t blockSize, std::string& error)
{
    std::unique_ptr<ClapTestHost> self(new ClapTestHost());
    self->rate = sampleRate;
    self->block = blockSize;
    if (!self->create(path, error)) return nullptr;
    return self;
}

bool ClapTestHost::create(const std::string& path, std::string& error)
{
    library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!library)
    {
        error = dlerror();
        return false;
    }
    entry = static_cast<const clap_plugin_entry_t*>(dlsym(library, "clap_entry"));
    if (!entry || !clap_version_is_compatible(entry->clap_version) || !entry->init(path.c_str()))
    {
        error = "no usable clap_entry in " + path;
        entry = nullptr;
        return false;
    }
    const auto* factory =
        static_cast<const clap_plugin_factory_t*>(entry->get_factory(CLAP_PLUGIN_FACTORY_ID));
    if (!factory || factory->get_plugin_count(factory) != 1)
    {
        error = "the factory does not offer one plug-in";
        return false;
    }
    const clap_plugin_descriptor_t* descriptor = factory->get_plugin_descriptor(factory, 0);
    plugin = descriptor ? factory->create_plugin(factory, &host, descriptor->id) : nullptr;
    if (!plugin || !plugin->init(plugin))
    {
        error = "the plug-in could not be created";
        return false;
    }
    return true;
}

const void* ClapTestHost::hostExtension(const clap_host_t*, const char* id)
{
    static const clap_host_timer_support_t timerSupport = {registerTimer, unregisterTimer};
    static const clap_host_gui_t gui = {hintsChanged, requestResize, refuseRequest, refuseRequest,
                                        editorClosed};
    if (std::strcmp(id, CLAP_EXT_GUI) == 0) return &gui;
    if (std::strcmp(id, CLAP_EXT_TIMER_SUPPORT) == 0) return &timerSupport;
    return nullptr;
}

bool ClapTestHost::requestResize(const clap_host_t* host, uint32_t width, uint32_t height)
{
    auto* self = static_cast<ClapTestHost*>(host->host_data);
    self->resizes.emplace_back(width, height);
    return self->resizeAllowed;
}

bool ClapTestHost::canResizeEditor() const
{
    return gui()->can_resize(plugin);
}

bool ClapTestHost::adjustEditorSize(uint32_t& width, uint32_t& height) const
{
    return gui()->adjust_size(plugin, &width, &height);
}

bool ClapTestHost::setEditorSize(uint32_t width, uint32_t height)
{
    return gui()->set_size(plugin, width, height);
}

bool ClapTestHost::registerTimer(const clap_host_t* host, uint32_t, clap_id* id)
{
    auto* self = static_cast<ClapTestHost*>(host->host_data);
    *id = self->nextTimer++;
    self->timers.push_back(*id);
    return true;
}

bool ClapTestHost::unregisterTimer(const clap_host_t* host, clap_id id)
{
    auto* self = static_cast<ClapTestHost*>(host->host_data);
    const auto found = std::find(self->timers.begin(), self->timers.end(), id);
    if (found == self->timers.end()) return false;
    self->timers.erase(found);
    return true;
}

ClapTestHost::~ClapTestHost()
{
    if (editorOpen) closeEditor();
    if (plugin)
    {
        if (active)
        {
            plugin->stop_processing(plugin);
            plugin->deactivate(plugin);
        }
        plugin->destroy(plugin);
    }
    if (entry) entry->deinit();
    if (library) dlclose(library);
}

const void* ClapTestHost::extension(const char* id) const
{
    return plugin->get_extension(plugin, id);
}

std::vector<clap_audio_port_info_t> ClapTestHost::audioPorts(bool input) const
{
    std::vector<clap_audio_port_info_t> all;
    const auto* ports = static_cast<const clap_plugin_audio_ports_t*>(extension(CLAP_EXT_AUDIO_PORTS));
    for (uint32_t i = 0; ports && i < ports->count(plugin, input); ++i)
    {
        clap_audio_port_info_t info{};
        if (ports->get(plugin, i, input, &info)) all.push_back(info);
    }
    return all;
}

const clap_plugin_params_t* ClapTestHost::params() const
{
    const auto* found = static_cast<const clap_plugin_params_t*>(extension(CLAP_EXT_PARAMS));
    EXPECT_TRUE(found);
    return found;
}

// ---------------------------------------------------------------- parameters

std::vector<clap_param_info_t> ClapTestHost::parameters() const
{
    std::vector<clap_param_info_t> all;
    const clap_plugin_params_t* p = params();
    for (uint32_t i = 0; p && i < p->count(plugin); ++i)
    {
        clap_param_info_t info{};
        if (p->get_info(plugin, i, &info)) all.push_back(info);
    }
    return all;
}

clap_id ClapTestHost::parameterId(const std::string& name) const
{
    for (const clap_param_info_t& info : parameters())
        if (name == info.name) return info.id;
    ADD_FAILURE() << "no parameter named " << name;
    return CLAP_INVALID_ID;
}

double ClapTestHost::value(clap_id id) const
{
    double v = -1.0;
    EXPECT_TRUE(params()->get_value(plugin, id, &v)) << id;
    return v;
}

std::string ClapTestHost::text(clap_id id, double value) const
{
    char display[CLAP_NAME_SIZE] = {};
    return params()->value_to_text(plugin, id, value, display, sizeof display) ? display : "<refused>";
}

void ClapTestHost::queueValue(clap_id id, double value)
{
    clap_event_param_value_t event{};
    event.header.size = sizeof event;
    event.header.time = 0;
    event.header.space_id = CLAP_CORE_EVENT_SPACE_ID;
    event.header.type = CLAP_EVENT_PARAM_VALUE;
    event.param_id = id;
    event.note_id = -1;
    event.port_index = -1;
    event.channel = -1;
    event.key = -1;
    event.value = value;
    queued.push_back(event);
}

void ClapTestHost::flush()
{
    const clap_input_events_t in{&queued, eventCount, eventAt};
    const clap_output_events_t out{&reported, keepEvent};
    params()->flush(plugin, &in, &out);
    queued.clear();
}

// ---------------------------------------------------------------- processing

void ClapTestHost::activate()
{
    ASSERT_TRUE(plugin->activate(plugin, rate, 1, block));
    ASSERT_TRUE(plugin->start_processing(plugin));
    active = true;
}

void ClapTestHost::process(const float* inL, const float* inR, float* outL, float* outR, uint32_t frames)
{
    if (!active) activate();
    for (uint32_t done = 0; done < frames; done += block)
    {
        const uint32_t n = std::min(block, frames - done);
        float* inputs[2] = {const_cast<float*>(inL + done), const_cast<float*>(inR + done)};
        float* outputs[2] = {outL + done, outR + done};
        const clap_audio_buffer_t in{inputs, nullptr, 2, 0, 0};
        clap_audio_buffer_t out{outputs, nullptr, 2, 0, 0};
        const clap_input_events_t events{&queued, eventCount, eventAt};
        const clap_output_events_t outEvents{&reported, keepEvent};
        const clap_process_t process{
            static_cast<int64_t>(done), n, nullptr, &in, &out, 1, 1, &events, &outEvents};
        EXPECT_EQ(plugin->process(plugin, &process), CLAP_PROCESS_CONTINUE);
        queued.clear();
    }
}

// ---------------------------------------------------------------- state

std::vector<uint8_t> ClapTestHost::saveState() const
{
    std::vector<uint8_t> bytes;
    const auto* state = static_cast<const clap_plugin_state_t*>(extension(CLAP_EXT_STATE));
    const clap_ostream_t stream{&bytes, writeBytes};
    EXPECT_TRUE(state && state->save(plugin, &stream));
    return bytes;
}

bool ClapTestHost::restoreState(const std::vector<uint8_t>& bytes)
{
    Reading reading{&bytes, 0};
    const auto* state = static_cast<const clap_plugin_state_t*>(extension(CLAP_EXT_STATE));
    const clap_istream_t stream{&reading, readBytes};
    return state && state->load(plugin, &stream);
}

// ---------------------------------------------------------------- the editor

const clap_plugin_gui_t* ClapTestHost::gui() const
{
    return static_cast<const clap_plugin_gui_t*>(extension(CLAP_EXT_GUI));
}

bool ClapTestHost::openEditor(unsigned long parent, uint32_t& width, uint32_t& height, std::string& error,
                              double scale)
{
    const clap_plugin_gui_t* g = gui();
    if (!g || !g->is_api_supported(plugin, CLAP_WINDOW_API_X11, false))
    {
        error = "the plug-in offers no embedded X11 editor";
        return false;
    }
    if (!g->create(plugin, CLAP_WINDOW_API_X11, false))
    {
        error = "the editor could not be created";
        return false;
    }
    editorOpen = true;
    if (scale > 0.0 && !g->set_scale(plugin, scale))
    {
        error = "the editor refused the scale";
        return false;
    }
    clap_window_t window{};
    window.api = CLAP_WINDOW_API_X11;
    window.x11 = parent;
    if (!g->get_size(plugin, &width, &height) || !g->set_parent(plugin, &window) || !g->show(plugin))
    {
        error = "the editor refused its size, its parent or to show";
        return false;
    }
    return true;
}

void ClapTestHost::idleEditor()
{
    const auto* timer = static_cast<const clap_plugin_timer_support_t*>(extension(CLAP_EXT_TIMER_SUPPORT));
    for (clap_id id : std::vector<clap_id>(timers))
        if (timer) timer->on_timer(plugin, id);
}

void ClapTestHost::closeEditor()
{
    const clap_plugin_gui_t* g = gui();
    g->hide(plugin);
    g->destroy(plugin);
    editorOpen = false;
}
