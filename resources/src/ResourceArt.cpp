#include "ResourceArt.h"

#include "BitmapIds.h"

#include <cairo.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>

namespace
{
struct Rgb
{
    double r, g, b;
};

constexpr Rgb rgb(int r, int g, int b)
{
    return {r / 255.0, g / 255.0, b / 255.0};
}

// The palette: a light instrument panel, so that the black value texts the editor draws read well
// anywhere on it; dark graphite for wells, the header and the buttons; one cool accent.
const Rgb kPanelTop = rgb(228, 231, 234);
const Rgb kPanelBottom = rgb(196, 201, 207);
const Rgb kGraphite = rgb(38, 41, 47);
const Rgb kEdgeLight = rgb(255, 255, 255);
const Rgb kEdgeDark = rgb(18, 20, 23);
const Rgb kEngrave = rgb(142, 148, 156);
const Rgb kPlate = rgb(189, 207, 218);
const Rgb kPlateShade = rgb(150, 168, 180);
const Rgb kGroove = rgb(24, 26, 30);
const Rgb kTick = rgb(112, 118, 126);
const Rgb kLabel = rgb(160, 168, 178);
const Rgb kInk = rgb(52, 56, 62);
const Rgb kAccent = rgb(86, 170, 232);

// A surface for a bitmap of width × height in the editor's units, drawn at scale: its pixels are the units
// times the scale, and it draws in units.
cairo_surface_t* canvas(double scale, int width, int height)
{
    cairo_surface_t* surface =
        cairo_image_surface_create(CAIRO_FORMAT_ARGB32, static_cast<int>(std::ceil(width * scale)),
                                   static_cast<int>(std::ceil(height * scale)));
    cairo_surface_set_device_scale(surface, scale, scale);
    return surface;
}

void setColor(cairo_t* cr, const Rgb& c, double alpha = 1.0)
{
    cairo_set_source_rgba(cr, c.r, c.g, c.b, alpha);
}

void roundedRect(cairo_t* cr, double x, double y, double w, double h, double r)
{
    cairo_new_sub_path(cr);
    cairo_arc(cr, x + w - r, y + r, r, -M_PI / 2, 0);
    cairo_arc(cr, x + w - r, y + h - r, r, 0, M_PI / 2);
    cairo_arc(cr, x + r, y + h - r, r, M_PI / 2, M_PI);
    cairo_arc(cr, x + r, y + r, r, M_PI, 3 * M_PI / 2);
    cairo_close_path(cr);
}

void text(cairo_t* cr, const char* s, double x, double y, double size, const Rgb& c, bool bold = false,
          double align = 0.0)
{
    cairo_select_font_face(cr, "DejaVu Sans", CAIRO_FONT_SLANT_NORMAL,
                           bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(cr, size);
    cairo_text_extents_t e;
    cairo_text_extents(cr, s, &e);
    setColor(cr, c);
    cairo_move_to(cr, std::round(x - align * e.x_advance), y);
    cairo_show_text(cr, s);
}

// A label centred between left and right, in 8.5 px or smaller until it fits.
void fittedText(cairo_t* cr, const char* s, double left, double right, double baseline, const Rgb& c)
{
    double size = 8.5;
    cairo_select_font_face(cr, "DejaVu Sans", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
    cairo_text_extents_t e;
    for (;; size -= 0.25)
    {
        cairo_set_font_size(cr, size);
        cairo_text_extents(cr, s, &e);
        if (e.x_advance <= right - left || size <= 6.0) break;
    }
    text(cr, s, (left + right) / 2.0, baseline, size, c, false, 0.5);
}

// Fills the current path with a vertical gradient from upper (at top) to lower (at bottom) and draws its
// edge one pixel wide: the face of every raised part.
void fillFace(cairo_t* cr, double top, double bottom, const Rgb& upper, const Rgb& lower, const Rgb& edge)
{
    cairo_pattern_t* face = cairo_pattern_create_linear(0, top, 0, bottom);
    cairo_pattern_add_color_stop_rgb(face, 0, upper.r, upper.g, upper.b);
    cairo_pattern_add_color_stop_rgb(face, 1, lower.r, lower.g, lower.b);
    cairo_set_source(cr, face);
    cairo_fill_preserve(cr);
    cairo_pattern_destroy(face);
    setColor(cr, edge);
    cairo_set_line_width(cr, 1);
    cairo_stroke(cr);
}

// A recessed well: darker inside, a light lower edge, a dark upper edge.
void well(cairo_t* cr, double x, double y, double w, double h, double r, const Rgb& fill)
{
    roundedRect(cr, x - 0.5, y + 0.5, w + 1, h, r);
    setColor(cr, kEdgeLight, 0.35);
    cairo_fill(cr);
    roundedRect(cr, x - 0.5, y - 0.5, w + 1, h + 0.5, r);
    setColor(cr, kEdgeDark, 0.9);
    cairo_fill(cr);
    roundedRect(cr, x, y, w, h, r);
    setColor(cr, fill);
    cairo_fill(cr);
}

void plate(cairo_t* cr, double x, double y, double w, double h)
{
    well(cr, x, y, w, h, 2.5, kPlate);
    cairo_pattern_t* shade = cairo_pattern_create_linear(0, y, 0, y + h);
    cairo_pattern_add_color_stop_rgba(shade, 0, kPlateShade.r, kPlateShade.g, kPlateShade.b, 0.55);
    cairo_pattern_add_color_stop_rgba(shade, 0.35, kPlate.r, kPlate.g, kPlate.b, 0.0);
    roundedRect(cr, x, y, w, h, 2.5);
    cairo_set_source(cr, shade);
    cairo_fill(cr);
    cairo_pattern_destroy(shade);
}

void sliderTrack(cairo_t* cr, double left, double right, double top)
{
    // The handle (14 px wide) travels from left to right − 14: the groove runs between its centres.
    const double y = top + 7;
    well(cr, left + 5, y - 2, right - left - 10, 4, 2, kGroove);
    for (int i = 0; i <= 10; ++i)
    {
        const double x = std::round(left + 7 + i * (right - left - 14) / 10.0) + 0.5;
        setColor(cr, kTick, i % 5 == 0 ? 1.0 : 0.6);
        cairo_set_line_width(cr, 1);
        cairo_move_to(cr, x, top + 12);
        cairo_line_to(cr, x, top + (i % 5 == 0 ? 16 : 14));
        cairo_stroke(cr);
    }
}

// A one-pixel engraved line across the panel: dark with a light line below.
void hairline(cairo_t* cr, double y)
{
    cairo_set_line_width(cr, 1);
    setColor(cr, kEngrave);
    cairo_move_to(cr, 6, y);
    cairo_line_to(cr, 296, y);
    cairo_stroke(cr);
    setColor(cr, kEdgeLight, 0.8);
    cairo_move_to(cr, 6, y + 1);
    cairo_line_to(cr, 296, y + 1);
    cairo_stroke(cr);
}

// 128: the editor's background, 302 × 250. The displays draw it from a point a few pixels below their
// own top, so the panel stays plain wherever text is shown: nothing there may mark an edge.
cairo_surface_t* background(double scale)
{
    cairo_surface_t* surface = canvas(scale, 302, 250);
    cairo_t* cr = cairo_create(surface);
    cairo_pattern_t* body = cairo_pattern_create_linear(0, 0, 0, 250);
    cairo_pattern_add_color_stop_rgb(body, 0, kPanelTop.r, kPanelTop.g, kPanelTop.b);
    cairo_pattern_add_color_stop_rgb(body, 1, kPanelBottom.r, kPanelBottom.g, kPanelBottom.b);
    cairo_set_source(cr, body);
    cairo_paint(cr);
    cairo_pattern_destroy(body);

    // A faint grain gives the panel a finish (fixed seed: the same picture every time): one pixel of the
    // panel a grain, light or dark, laid over it at a few percent. Set pixel by pixel in an image of the
    // panel's size and laid on whole, so that drawing the panel at other scales stays quick.
    cairo_surface_t* grains = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 302, 250);
    cairo_surface_flush(grains);
    unsigned char* pixels = cairo_image_surface_get_data(grains);
    const int stride = cairo_image_surface_get_stride(grains);
    unsigned seed = 12345;
    for (int y = 21; y < 249; ++y)
        for (int x = 1; x < 301; ++x)
        {
            seed = seed * 1103515245u + 12345u;
            if ((seed >> 16) % 5 != 0) continue;
            const uint32_t opaque = (seed >> 8) & 1 ? 0xFFFFFFFFu : 0xFF000000u; // white or black
            std::memcpy(pixels + y * stride + x * 4, &opaque, sizeof(opaque));
        }
    cairo_surface_mark_dirty(grains);
    cairo_save(cr);
    cairo_set_source_surface(cr, grains, 0, 0);
    cairo_pattern_set_filter(cairo_get_source(cr), CAIRO_FILTER_NEAREST);
    cairo_paint_with_alpha(cr, 0.035);
    cairo_restore(cr);
    cairo_surface_destroy(grains);

    // Header: a graphite band with the product on the left and what it does on the right.
    cairo_rectangle(cr, 0, 0, 302, 20);
    cairo_pattern_t* band = cairo_pattern_create_linear(0, 0, 0, 20);
    cairo_pattern_add_color_stop_rgb(band, 0, 0.20, 0.22, 0.25);
    cairo_pattern_add_color_stop_rgb(band, 1, 0.13, 0.14, 0.16);
    cairo_set_source(cr, band);
    cairo_fill(cr);
    cairo_pattern_destroy(band);
    text(cr, "SPATARA", 8, 14.5, 10, rgb(232, 236, 240), true);
    text(cr, "stereo enhancer", 294, 14.5, 9, kLabel, false, 1.0);
    setColor(cr, kAccent);
    cairo_rectangle(cr, 0, 20, 302, 1);
    cairo_fill(cr);

    // Outline: dark edge, light bevel inside.
    cairo_set_line_width(cr, 1);
    setColor(cr, kEdgeDark);
    cairo_rectangle(cr, 0.5, 0.5, 301, 249);
    cairo_stroke(cr);
    setColor(cr, kEdgeLight, 0.7);
    cairo_move_to(cr, 1.5, 21);
    cairo_line_to(cr, 1.5, 248.5);
    cairo_stroke(cr);

    // Balance meter row: the meter's well (182 × 10 at 60, 25) between the captions.
    well(cr, 58, 23, 186, 14, 2, kGroove);
    // The balanced centre, marked below the well so the eye finds it while the meter moves.
    setColor(cr, kInk);
    cairo_rectangle(cr, 150, 38, 2, 4);
    cairo_fill(cr);

    // Three slider rows, 32 px apart; captions and values stand on the plain panel.
    for (int row = 0; row < 3; ++row)
        sliderTrack(cr, 63, 239, 51 + 32 * row);

    hairline(cr, 144.5);

    // The about area (70..225 × 184..204) carries the maker's mark: a ring and the name.
    hairline(cr, 178.5);
    cairo_set_line_width(cr, 2);
    setColor(cr, kAccent);
    cairo_arc(cr, 124, 194, 5.5, 0, 2 * M_PI);
    cairo_stroke(cr);
    cairo_arc(cr, 124, 194, 1.8, 0, 2 * M_PI);
    cairo_fill(cr);
    text(cr, "ZEV", 135, 199, 13, kGraphite, true);
    text(cr, "audio", 168, 199, 11, kInk);

    // Preset panel at the foot: a recessed strip with the name field's display.
    well(cr, 4, 211, 294, 35, 3, rgb(176, 182, 189));
    plate(cr, 89, 222, 114, 16);
    // The list menu (207..217) is an invisible click area: the background shows its arrow.
    cairo_move_to(cr, 208.5, 227);
    cairo_line_to(cr, 215.5, 227);
    cairo_line_to(cr, 212, 231.5);
    cairo_close_path(cr);
    setColor(cr, kGraphite);
    cairo_fill(cr);
    // Memories: store buttons at x 254, recall buttons at x 279, their letters between.
    text(cr, "A", 272.5, 226, 9, kGraphite, true, 0.5);
    text(cr, "B", 272.5, 241, 9, kGraphite, true, 0.5);

    cairo_destroy(cr);
    return surface;
}

// 134: the slider handle, 14 × 16: graphite with a light grip line.
cairo_surface_t* sliderHandle(double scale)
{
    cairo_surface_t* surface = canvas(scale, 14, 16);
    cairo_t* cr = cairo_create(surface);
    roundedRect(cr, 0.5, 0.5, 13, 15, 2.5);
    fillFace(cr, 0, 16, Rgb{0.36, 0.39, 0.43}, Rgb{0.14, 0.15, 0.17}, kEdgeDark);
    setColor(cr, kAccent);
    cairo_rectangle(cr, 6, 3, 2, 10);
    cairo_fill(cr);
    cairo_destroy(cr);
    return surface;
}

// 135 / 136: the meter lit and unlit, 182 × 10, one segment per pixel.
cairo_surface_t* meter(double scale, bool lit)
{
    cairo_surface_t* surface = canvas(scale, 182, 10);
    cairo_t* cr = cairo_create(surface);
    cairo_pattern_t* bar = cairo_pattern_create_linear(0, 0, 182, 0);
    // Side (S) in the accent colour, mid (M) warmer, both dim when unlit.
    const double level = lit ? 1.0 : 0.22;
    cairo_pattern_add_color_stop_rgb(bar, 0, 0.34 * level, 0.67 * level, 0.91 * level);
    cairo_pattern_add_color_stop_rgb(bar, 0.5, 0.80 * level, 0.84 * level, 0.88 * level);
    cairo_pattern_add_color_stop_rgb(bar, 1, 0.95 * level, 0.70 * level, 0.30 * level);
    cairo_set_source(cr, bar);
    cairo_paint(cr);
    cairo_pattern_destroy(bar);
    // Segment gaps every 4 px read as LEDs.
    setColor(cr, kGroove, 0.85);
    for (int x = 3; x < 182; x += 4)
        cairo_rectangle(cr, x, 0, 1, 10);
    cairo_fill(cr);
    cairo_destroy(cr);
    return surface;
}

// 137 / 138: the "process" and "phase" on/off buttons, two frames of 44 × 18 stacked (off above on).
cairo_surface_t* onOffButton(double scale, const char* label)
{
    cairo_surface_t* surface = canvas(scale, 44, 36);
    cairo_t* cr = cairo_create(surface);
    for (int on = 0; on < 2; ++on)
    {
        const double y = on * 18;
        roundedRect(cr, 0.5, y + 0.5, 43, 17, 3);
        fillFace(cr, y, y + 18, Rgb{0.27, 0.29, 0.33}, Rgb{0.17, 0.18, 0.21}, kEdgeDark);
        cairo_arc(cr, 7, y + 9, 2.5, 0, 2 * M_PI);
        setColor(cr, on ? kAccent : rgb(60, 66, 74));
        cairo_fill(cr);
        fittedText(cr, label, 11, 42, y + 12.5, on ? rgb(232, 236, 240) : kLabel);
    }
    cairo_destroy(cr);
    return surface;
}

// The panel's buttons share one face. A small button face of w × h at y: dark, lighter when hovered,
// accent-rimmed when pressed.
void buttonFace(cairo_t* cr, double y, double w, double h, int state)
{
    roundedRect(cr, 0.5, y + 0.5, w - 1, h - 1, 2.5);
    const double lift = state == 1 ? 0.06 : 0.0;
    if (state == 2) // pressed: lit from below, with an accent edge
        fillFace(cr, y, y + h, Rgb{0.13, 0.14, 0.16}, Rgb{0.20, 0.22, 0.25}, kAccent);
    else
        fillFace(cr, y, y + h, Rgb{0.27 + lift, 0.29 + lift, 0.33 + lift},
                 Rgb{0.17 + lift, 0.18 + lift, 0.21 + lift}, kEdgeDark);
}

Rgb iconColor(int state)
{
    return state == 0 ? kLabel : (state == 1 ? rgb(232, 236, 240) : kAccent);
}

// 19994 / 19995 / 19996 / 19999 save and store, 19991 / 19992 / 19993 / 19998 load and recall:
// save (arrow into a tray) or load (arrow out of it), three frames of 12 × 14 (normal, hovered, pressed).
cairo_surface_t* trayButton(double scale, bool save)
{
    cairo_surface_t* surface = canvas(scale, 12, 42);
    cairo_t* cr = cairo_create(surface);
    for (int state = 0; state < 3; ++state)
    {
        const double y = state * 14;
        buttonFace(cr, y, 12, 14, state);
        const Rgb color = iconColor(state);
        setColor(cr, color);
        cairo_set_line_width(cr, 1);
        // The tray.
        cairo_move_to(cr, 3.5, y + 8);
        cairo_line_to(cr, 3.5, y + 10.5);
        cairo_line_to(cr, 8.5, y + 10.5);
        cairo_line_to(cr, 8.5, y + 8);
        cairo_stroke(cr);
        // The arrow: down into the tray to save, up out of it to load.
        const double tip = save ? y + 8.5 : y + 2.5;
        const double tail = save ? y + 2.5 : y + 8.5;
        cairo_move_to(cr, 6, tail);
        cairo_line_to(cr, 6, tip);
        cairo_stroke(cr);
        const double wing = save ? -2.5 : 2.5;
        cairo_move_to(cr, 3.5, tip + wing);
        cairo_line_to(cr, 6, tip);
        cairo_line_to(cr, 8.5, tip + wing);
        cairo_stroke(cr);
    }
    cairo_destroy(cr);
    return surface;
}

// 19899 / 19990: a labelled button of w × h in three frames (normal, hovered, pressed): the default-preset
// and default-bank buttons, which act on a double click.
cairo_surface_t* labelButton(double scale, const char* label, int w, int h)
{
    cairo_surface_t* surface = canvas(scale, w, h * 3);
    cairo_t* cr = cairo_create(surface);
    for (int state = 0; state < 3; ++state)
    {
        const double y = state * h;
        buttonFace(cr, y, w, h, state);
        text(cr, label, w / 2.0, y + h - 2.5, 7.5, iconColor(state), true, 0.5);
    }
    cairo_destroy(cr);
    return surface;
}

// 19997: the previous / next rocker, 31 × 14 in five frames: rest, left hovered, right hovered, left pressed,
// right pressed.
cairo_surface_t* rocker(double scale)
{
    cairo_surface_t* surface = canvas(scale, 31, 70);
    cairo_t* cr = cairo_create(surface);
    for (int frame = 0; frame < 5; ++frame)
    {
        const double y = frame * 14;
        buttonFace(cr, y, 31, 14, 0);
        setColor(cr, kEdgeDark);
        cairo_move_to(cr, 15.5, y + 2);
        cairo_line_to(cr, 15.5, y + 12);
        cairo_stroke(cr);
        for (int side = 0; side < 2; ++side)
        {
            const int state = frame == 1 + side ? 1 : (frame == 3 + side ? 2 : 0);
            setColor(cr, iconColor(state));
            const double cx = side == 0 ? 8 : 23;
            const double dir = side == 0 ? -1 : 1;
            cairo_move_to(cr, cx + 2.5 * dir, y + 7);
            cairo_line_to(cr, cx - 2 * dir, y + 3.5);
            cairo_line_to(cr, cx - 2 * dir, y + 10.5);
            cairo_close_path(cr);
            cairo_fill(cr);
        }
    }
    cairo_destroy(cr);
    return surface;
}

// 989: the manual button, 16 × 14 in three frames, a question mark.
cairo_surface_t* manualButton(double scale)
{
    cairo_surface_t* surface = canvas(scale, 16, 42);
    cairo_t* cr = cairo_create(surface);
    for (int state = 0; state < 3; ++state)
    {
        buttonFace(cr, state * 14, 16, 14, state);
        text(cr, "?", 8, state * 14 + 11, 10, iconColor(state), true, 0.5);
    }
    cairo_destroy(cr);
    return surface;
}

// 139: the three-state mode button: three frames of 44 × 18, one to three lit dots and the mode's name.
cairo_surface_t* modeButton(double scale)
{
    cairo_surface_t* surface = canvas(scale, 44, 54);
    cairo_t* cr = cairo_create(surface);
    static const char* const names[] = {"mode 1", "mode 2", "mode 3"};
    for (int mode = 0; mode < 3; ++mode)
    {
        const double y = mode * 18;
        buttonFace(cr, y, 44, 18, 0);
        for (int dot = 0; dot < 3; ++dot)
        {
            cairo_arc(cr, 5, y + 4.5 + dot * 4.5, 1.5, 0, 2 * M_PI);
            setColor(cr, dot == mode ? kAccent : rgb(60, 66, 74));
            cairo_fill(cr);
        }
        fittedText(cr, names[mode], 9, 42, y + 12.5, rgb(232, 236, 240));
    }
    cairo_destroy(cr);
    return surface;
}

// 140: the about screen, 240 × 150, light so the dark lines of text drawn on it read well; the text
// lies in its top 100 pixels, the maker's mark below.
cairo_surface_t* aboutScreen(double scale)
{
    cairo_surface_t* surface = canvas(scale, 240, 150);
    cairo_t* cr = cairo_create(surface);
    roundedRect(cr, 0.5, 0.5, 239, 149, 6);
    fillFace(cr, 0, 150, Rgb{0.93, 0.95, 0.96}, Rgb{0.80, 0.85, 0.89}, kEdgeDark);
    setColor(cr, rgb(150, 160, 172));
    cairo_move_to(cr, 30, 110.5);
    cairo_line_to(cr, 210, 110.5);
    cairo_stroke(cr);
    cairo_set_line_width(cr, 2);
    setColor(cr, rgb(45, 45, 120));
    cairo_arc(cr, 97, 128, 6, 0, 2 * M_PI);
    cairo_stroke(cr);
    cairo_arc(cr, 97, 128, 2, 0, 2 * M_PI);
    cairo_fill(cr);
    text(cr, "ZEV", 109, 133.5, 13, rgb(45, 45, 120), true);
    text(cr, "audio", 142, 133.5, 11, rgb(60, 60, 60));
    cairo_destroy(cr);
    return surface;
}
} // namespace

namespace spatara
{
const std::vector<int32_t>& drawnResourceNumbers()
{
    static const std::vector<int32_t> numbers = {
        kBackgroundBitmap,      kUnusedHandleBitmap,  kSliderHandleBitmap,        kMeterOnBitmap,
        kMeterOffBitmap,        kProcessButtonBitmap, kPhaseButtonBitmap,         kModeButtonBitmap,
        kAboutScreenBitmap,     kManualButtonBitmap,  kDefaultPresetButtonBitmap, kDefaultBankButtonBitmap,
        kRecallAButtonBitmap,   kRecallBButtonBitmap, kLoadBankButtonBitmap,      kSaveBankButtonBitmap,
        kStoreAButtonBitmap,    kStoreBButtonBitmap,  kStepRockerBitmap,          kLoadPresetButtonBitmap,
        kSavePresetButtonBitmap};
    return numbers;
}

cairo_surface_t* drawResourceBitmap(int32_t number, double scale)
{
    switch (number)
    {
    case kBackgroundBitmap:
        return background(scale);
    case kUnusedHandleBitmap:
        return sliderHandle(scale);
    case kSliderHandleBitmap:
        return sliderHandle(scale);
    case kMeterOnBitmap:
        return meter(scale, true);
    case kMeterOffBitmap:
        return meter(scale, false);
    case kProcessButtonBitmap:
        return onOffButton(scale, "process");
    case kPhaseButtonBitmap:
        return onOffButton(scale, "phase");
    case kModeButtonBitmap:
        return modeButton(scale);
    case kAboutScreenBitmap:
        return aboutScreen(scale);
    case kManualButtonBitmap:
        return manualButton(scale);
    case kDefaultPresetButtonBitmap:
        return labelButton(scale, "PRESET", 47, 10);
    case kDefaultBankButtonBitmap:
        return labelButton(scale, "BANK", 37, 10);
    case kRecallAButtonBitmap:
        return trayButton(scale, false);
    case kRecallBButtonBitmap:
        return trayButton(scale, false);
    case kLoadBankButtonBitmap:
        return trayButton(scale, false);
    case kSaveBankButtonBitmap:
        return trayButton(scale, true);
    case kStoreAButtonBitmap:
        return trayButton(scale, true);
    case kStoreBButtonBitmap:
        return trayButton(scale, true);
    case kStepRockerBitmap:
        return rocker(scale);
    case kLoadPresetButtonBitmap:
        return trayButton(scale, false);
    case kSavePresetButtonBitmap:
        return trayButton(scale, true);
    default:
        return nullptr;
    }
}
} // namespace spatara
