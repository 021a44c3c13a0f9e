#include "dialog/preview/PictureMaker.hpp"

#include <gdk-pixbuf/gdk-pixbuf.h>
#include <poppler-document.h>
#include <poppler-global.h>
#include <poppler-image.h>
#include <poppler-page-renderer.h>
#include <poppler-page.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <memory>

namespace dialog {

namespace {

using namespace std::string_view_literals;

constexpr double kMillimetresPerInch = 25.4;
constexpr double kPointsPerInch = 72;

// What a printer's resolution can be; a picture that says anything else says nothing.
constexpr double kLeastResolution = 10;
constexpr double kMostResolution = 5000;

constexpr double kLargestPage = 200'000; // points: the longest that PDF allows, and some
constexpr double kFinestPage = 600;      // dots to the inch

std::uint8_t ink(int red, int green, int blue, int alpha) noexcept
{
    const int brightness = (299 * red + 587 * green + 114 * blue + 500) / 1000;
    return static_cast<std::uint8_t>((255 - brightness) * alpha / 255);
}

struct PixelSize
{
    int columns = 0;
    int rows = 0;
};

// The size as it is, or as much smaller as the bounds ask.
PixelSize bounded(double columns, double rows) noexcept
{
    const double share = std::min({1.0, kMostPixelsASide / std::max(columns, rows),
                                   std::sqrt(static_cast<double>(kMostPixels) / (columns * rows))});
    return {std::max(1, static_cast<int>(columns * share)),
            std::max(1, static_cast<int>(rows * share))};
}

void shrink(DocumentPicture& picture)
{
    const PixelSize size = bounded(picture.columns, picture.rows);
    if (size.columns == picture.columns && size.rows == picture.rows) {
        return;
    }
    picture.ink = resampled(picture, size.columns, size.rows, false);
    picture.columns = size.columns;
    picture.rows = size.rows;
}

// 0 where it does not say.
double resolution(GdkPixbuf* pixels, const char* key) noexcept
{
    const char* const text = gdk_pixbuf_get_option(pixels, key);
    double value = 0;
    if (text == nullptr ||
        std::from_chars(text, text + std::strlen(text), value).ec != std::errc() ||
        value < kLeastResolution || value > kMostResolution) {
        return 0;
    }
    return value;
}

DocumentPicture fromPixels(GdkPixbuf* pixels)
{
    DocumentPicture picture;
    picture.problem = PictureProblem::None;
    picture.kind = PictureKind::Pixels;
    picture.columns = gdk_pixbuf_get_width(pixels);
    picture.rows = gdk_pixbuf_get_height(pixels);
    const double across = resolution(pixels, "x-dpi");
    const double down = resolution(pixels, "y-dpi");
    if (across > 0 && down > 0) {
        picture.width = picture.columns / across * kMillimetresPerInch;
        picture.height = picture.rows / down * kMillimetresPerInch;
    }
    const bool hasAlpha = gdk_pixbuf_get_has_alpha(pixels);
    const auto channels = static_cast<std::size_t>(gdk_pixbuf_get_n_channels(pixels));
    const auto stride = static_cast<std::size_t>(gdk_pixbuf_get_rowstride(pixels));
    const guint8* const first = gdk_pixbuf_read_pixels(pixels);
    picture.ink.reserve(static_cast<std::size_t>(picture.columns) *
                        static_cast<std::size_t>(picture.rows));
    for (std::size_t y = 0; y < static_cast<std::size_t>(picture.rows); ++y) {
        const guint8* pixel = first + y * stride;
        for (int x = 0; x < picture.columns; ++x, pixel += channels) {
            picture.ink.push_back(ink(pixel[0], pixel[1], pixel[2], hasAlpha ? pixel[3] : 255));
        }
    }
    shrink(picture);
    return picture;
}

void refuseTooLarge(GdkPixbufLoader* loader, gint columns, gint rows, gpointer tooLarge)
{
    if (static_cast<double>(columns) * rows > kMostDocumentPixels) {
        *static_cast<bool*>(tooLarge) = true;
        gdk_pixbuf_loader_set_size(loader, 0, 0); // loads no pixels
    }
}

struct Unref
{
    void operator()(gpointer object) const noexcept { g_object_unref(object); }
};

DocumentPicture fromImage(std::string_view bytes, const char* type)
{
    const std::unique_ptr<GdkPixbufLoader, Unref> loader(
        gdk_pixbuf_loader_new_with_type(type, nullptr));
    if (!loader) {
        return DocumentPicture::failed(PictureProblem::NotMade);
    }
    bool tooLarge = false;
    g_signal_connect(loader.get(), "size-prepared", G_CALLBACK(refuseTooLarge), &tooLarge);
    const bool taken = gdk_pixbuf_loader_write(
        loader.get(), reinterpret_cast<const guchar*>(bytes.data()), bytes.size(), nullptr);
    const bool whole = gdk_pixbuf_loader_close(loader.get(), nullptr);
    if (tooLarge) {
        return DocumentPicture::failed(PictureProblem::TooLarge);
    }
    GdkPixbuf* const pixels = gdk_pixbuf_loader_get_pixbuf(loader.get()); // the loader's
    if (!taken || !whole || pixels == nullptr || gdk_pixbuf_get_width(pixels) < 1 ||
        gdk_pixbuf_get_height(pixels) < 1) {
        return DocumentPicture::failed(PictureProblem::Damaged);
    }
    return fromPixels(pixels);
}

DocumentPicture fromPDF(std::string_view bytes)
{
    const auto quiet = [](const std::string&, void*) {};
    poppler::set_debug_error_function(quiet, nullptr);
    const std::unique_ptr<poppler::document> document(
        poppler::document::load_from_raw_data(bytes.data(), static_cast<int>(bytes.size())));
    if (!document) {
        return DocumentPicture::failed(PictureProblem::Damaged);
    }
    if (document->is_locked()) {
        return DocumentPicture::failed(PictureProblem::Locked);
    }
    const std::unique_ptr<poppler::page> page(document->pages() > 0 ? document->create_page(0)
                                                                    : nullptr);
    if (!page) {
        return DocumentPicture::failed(PictureProblem::Damaged);
    }
    const poppler::rectf box = page->page_rect(poppler::crop_box);
    const auto orientation = page->orientation();
    const bool sideways =
        orientation == poppler::page::landscape || orientation == poppler::page::seascape;
    const double width = sideways ? box.height() : box.width();
    const double height = sideways ? box.width() : box.height();
    if (!(width > 0 && height > 0 && width <= kLargestPage && height <= kLargestPage)) {
        return DocumentPicture::failed(PictureProblem::Damaged);
    }
    const double finest = kFinestPage / kPointsPerInch;
    const PixelSize size = bounded(width * finest, height * finest);
    const double across = size.columns / width * kPointsPerInch;
    const double down = size.rows / height * kPointsPerInch;

    poppler::page_renderer renderer;
    renderer.set_render_hints(poppler::page_renderer::antialiasing |
                              poppler::page_renderer::text_antialiasing);
    renderer.set_image_format(poppler::image::format_gray8);
    const poppler::image image =
        renderer.render_page(page.get(), across, down, 0, 0, size.columns, size.rows);
    if (!image.is_valid() || image.format() != poppler::image::format_gray8) {
        return DocumentPicture::failed(PictureProblem::Damaged);
    }
    DocumentPicture picture;
    picture.problem = PictureProblem::None;
    picture.kind = PictureKind::Page;
    picture.pages = document->pages();
    picture.width = width / kPointsPerInch * kMillimetresPerInch;
    picture.height = height / kPointsPerInch * kMillimetresPerInch;
    picture.columns = image.width();
    picture.rows = image.height();
    for (int y = 0; y < picture.rows; ++y) {
        const auto* const row = reinterpret_cast<const unsigned char*>(
            image.const_data() + static_cast<std::ptrdiff_t>(y) * image.bytes_per_row());
        std::transform(row, row + picture.columns, std::back_inserter(picture.ink),
                       [](unsigned char gray) { return static_cast<std::uint8_t>(255 - gray); });
    }
    shrink(picture);
    return picture;
}

bool isText(std::string_view bytes)
{
    return bytes.find('\0') == std::string_view::npos &&
           g_utf8_validate(bytes.data(), static_cast<gssize>(bytes.size()), nullptr);
}

DocumentPicture fromText(std::string_view bytes)
{
    DocumentPicture picture;
    picture.problem = PictureProblem::None;
    picture.kind = PictureKind::Text;
    picture.text = firstPageOfText(bytes);
    return picture;
}

} // namespace

DocumentPicture makePicture(std::string_view document)
{
    if (document.size() > kMostDocumentBytes) {
        return DocumentPicture::failed(PictureProblem::TooLarge);
    }
    if (document.starts_with("\x89PNG\r\n\x1A\n"sv)) {
        return fromImage(document, "png");
    }
    if (document.starts_with("\xFF\xD8\xFF"sv)) {
        return fromImage(document, "jpeg");
    }
    if (document.starts_with("II*\0"sv) || document.starts_with("MM\0*"sv)) {
        return fromImage(document, "tiff");
    }
    // A few bytes before the mark are allowed.
    if (document.substr(0, 1024).find("%PDF-"sv) != std::string_view::npos) {
        return fromPDF(document);
    }
    if (isText(document)) {
        return fromText(document);
    }
    return DocumentPicture::failed(PictureProblem::UnknownKind);
}

} // namespace dialog
