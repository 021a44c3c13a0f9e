#include "tests/dialog/preview/Documents.hpp"

#include <gdk-pixbuf/gdk-pixbuf.h>

#include <array>
#include <cstdio>

namespace documents {

std::string image(const char* type, int columns, const std::vector<Pixel>& pixels, int resolution,
                  bool hasAlpha)
{
    const int rows = static_cast<int>(pixels.size()) / columns;
    GdkPixbuf* const picture =
        gdk_pixbuf_new(GDK_COLORSPACE_RGB, hasAlpha ? TRUE : FALSE, 8, columns, rows);
    guchar* const bytes = gdk_pixbuf_get_pixels(picture);
    const int channels = hasAlpha ? 4 : 3;
    for (int y = 0; y < rows; ++y) {
        for (int x = 0; x < columns; ++x) {
            const Pixel& pixel = pixels[static_cast<std::size_t>(y * columns + x)];
            guchar* const place = bytes + y * gdk_pixbuf_get_rowstride(picture) + x * channels;
            place[0] = pixel.red;
            place[1] = pixel.green;
            place[2] = pixel.blue;
            if (hasAlpha) {
                place[3] = pixel.alpha;
            }
        }
    }
    std::string dpi = std::to_string(resolution);
    std::string across = "x-dpi";
    std::string down = "y-dpi";
    std::array<char*, 3> keys{across.data(), down.data(), nullptr};
    std::array<char*, 3> values{dpi.data(), dpi.data(), nullptr};
    if (resolution == 0) {
        keys[0] = nullptr;
        values[0] = nullptr;
    }
    gchar* buffer = nullptr;
    gsize size = 0;
    gdk_pixbuf_save_to_bufferv(picture, &buffer, &size, type, keys.data(), values.data(), nullptr);
    g_object_unref(picture);
    std::string result(buffer == nullptr ? "" : buffer, size);
    g_free(buffer);
    return result;
}

std::string pdf(const PDF& document)
{
    std::string kids;
    for (int i = 0; i < document.pages; ++i) {
        kids += std::to_string(4 + i) + " 0 R ";
    }
    std::vector<std::string> objects{"<< /Type /Catalog /Pages 2 0 R >>",
                                     "<< /Type /Pages /Kids [" + kids + "] /Count " +
                                         std::to_string(document.pages) + " >>",
                                     "<< /Length " + std::to_string(document.drawing.size()) +
                                         " >>\nstream\n" + document.drawing + "\nendstream"};
    for (int i = 0; i < document.pages; ++i) {
        objects.push_back("<< /Type /Page /Parent 2 0 R /MediaBox [" + document.box + "] /Rotate " +
                          std::to_string(document.rotation) + " " + document.page +
                          (i == 0 ? " /Contents 3 0 R" : "") + " /Resources << >> >>");
    }
    std::string text = "%PDF-1.4\n";
    std::string places = "0000000000 65535 f \n";
    for (std::size_t i = 0; i < objects.size(); ++i) {
        std::array<char, 32> place{};
        std::snprintf(place.data(), place.size(), "%010zu 00000 n \n", text.size());
        places += place.data();
        text += std::to_string(i + 1) + " 0 obj\n" + objects[i] + "\nendobj\n";
    }
    const std::string count = std::to_string(objects.size() + 1);
    const std::string start = std::to_string(text.size());
    return text + "xref\n0 " + count + "\n" + places + "trailer << /Size " + count +
           " /Root 1 0 R " + document.trailer + " >>\nstartxref\n" + start + "\n%%EOF\n";
}

} // namespace documents
