// Turns a PNG into a one-page PDF of the same proportions (at 96 pixels to the inch), so that the manual can
// place the pictures of docs/ with groff's PDF driver, which places PDF pictures only. The PDF is written
// here, plainly (one page, one picture), because the driver reads only plain PDFs.
//   png_to_pdf PICTURE.png PICTURE.pdf
#include <cairo.h>
#include <zlib.h>

#include <cstdio>
#include <string>
#include <vector>

namespace
{
// The picture's pixels as 8-bit RGB rows, over white where it is not opaque.
std::vector<unsigned char> rgbOf(cairo_surface_t* picture, int width, int height)
{
    cairo_surface_flush(picture);
    const unsigned char* data = cairo_image_surface_get_data(picture);
    const int stride = cairo_image_surface_get_stride(picture);
    std::vector<unsigned char> rgb;
    rgb.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 3);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
        {
            const unsigned char* pixel = data + y * stride + x * 4; // premultiplied B, G, R, A in memory
            const int white = 255 - pixel[3];
            for (const int channel : {2, 1, 0})
                rgb.push_back(static_cast<unsigned char>(pixel[channel] + white));
        }
    return rgb;
}
} // namespace

int main(int argc, char** argv)
{
    if (argc != 3)
    {
        std::fprintf(stderr, "usage: %s PICTURE.png PICTURE.pdf\n", argv[0]);
        return 2;
    }
    cairo_surface_t* picture = cairo_image_surface_create_from_png(argv[1]);
    if (cairo_surface_status(picture) != CAIRO_STATUS_SUCCESS)
    {
        std::fprintf(stderr, "png_to_pdf: cannot read %s\n", argv[1]);
        cairo_surface_destroy(picture);
        return 1;
    }
    const int width = cairo_image_surface_get_width(picture);
    const int height = cairo_image_surface_get_height(picture);
    const std::vector<unsigned char> rgb = rgbOf(picture, width, height);
    cairo_surface_destroy(picture);
    uLongf packedSize = compressBound(static_cast<uLong>(rgb.size()));
    std::vector<unsigned char> packed(packedSize);
    if (compress2(packed.data(), &packedSize, rgb.data(), static_cast<uLong>(rgb.size()), 9) != Z_OK)
        return 1;

    const double pageWidth = width * 0.75, pageHeight = height * 0.75; // points, at 96 pixels to the inch
    char text[256];
    std::string pdf = "%PDF-1.4\n";
    std::vector<std::size_t> offsets;
    auto object = [&](const std::string& body)
    {
        offsets.push_back(pdf.size());
        pdf += std::to_string(offsets.size()) + " 0 obj\n" + body + "\nendobj\n";
    };
    object("<< /Type /Catalog /Pages 2 0 R >>");
    object("<< /Type /Pages /Kids [3 0 R] /Count 1 >>");
    std::snprintf(text, sizeof(text),
                  "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 %.2f %.2f] /Contents 4 0 R "
                  "/Resources << /XObject << /Im1 5 0 R >> >> >>",
                  pageWidth, pageHeight);
    object(text);
    std::snprintf(text, sizeof(text), "q %.2f 0 0 %.2f 0 0 cm /Im1 Do Q", pageWidth, pageHeight);
    const std::string contents = text;
    object("<< /Length " + std::to_string(contents.size()) + " >>\nstream\n" + contents + "\nendstream");
    std::snprintf(text, sizeof(text),
                  "<< /Type /XObject /Subtype /Image /Width %d /Height %d /ColorSpace /DeviceRGB "
                  "/BitsPerComponent 8 /Filter /FlateDecode /Length %lu >>\nstream\n",
                  width, height, static_cast<unsigned long>(packedSize));
    object(std::string(text) + std::string(packed.begin(), packed.begin() + static_cast<long>(packedSize)) +
           "\nendstream");
    const std::size_t table = pdf.size();
    pdf += "xref\n0 " + std::to_string(offsets.size() + 1) + "\n0000000000 65535 f \n";
    for (const std::size_t offset : offsets)
    {
        std::snprintf(text, sizeof(text), "%010zu 00000 n \n", offset);
        pdf += text;
    }
    pdf += "trailer\n<< /Size " + std::to_string(offsets.size() + 1) + " /Root 1 0 R >>\nstartxref\n" +
           std::to_string(table) + "\n%%EOF\n";

    FILE* out = std::fopen(argv[2], "wb");
    const bool written = out && std::fwrite(pdf.data(), 1, pdf.size(), out) == pdf.size();
    if (out && std::fclose(out) != 0) return 1;
    if (!written) std::fprintf(stderr, "png_to_pdf: cannot write %s\n", argv[2]);
    return written ? 0 : 1;
}
