// PictureMaker.hpp - the first page of a document from its bytes.
//
// Only tape-print-picture calls this: the libraries below may fail on a document in ways that end
// the program.
#pragma once

#include "dialog/preview/DocumentPicture.hpp"

#include <cstddef>
#include <string_view>

namespace dialog {

// Larger ones are not looked at.
inline constexpr std::size_t kMostDocumentBytes = std::size_t{64} * 1024 * 1024;
inline constexpr double kMostDocumentPixels = 40e6; // some A4 page at 600 dots to the inch

// PDF, PNG, JPEG, TIFF and text (UTF-8 or ASCII), told apart by their first bytes.
DocumentPicture makePicture(std::string_view document);

} // namespace dialog
