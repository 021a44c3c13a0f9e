// Keywords.hpp - the PPD keywords that the panel reads and writes, each spelled once.
#pragma once

namespace ppd {

// Options.
inline constexpr const char* kTapeLengthOption = "VnTapeLength";
inline constexpr const char* kMarginOption = "VnMargin";
inline constexpr const char* kQualityOption = "VnPriority";
inline constexpr const char* kResolutionOption = "Resolution";
inline constexpr const char* kCompressOption = "VnCompress";
inline constexpr const char* kPrintModeOption = "VnResolution";
inline constexpr const char* kPageSizeOption = "PageSize";

// Attributes.
inline constexpr const char* kUnitTypeAttribute = "VnUnitType";
inline constexpr const char* kWholeTapeLengthAttribute = "VnIsIntegerTapeLength";
inline constexpr const char* kWholeMarginAttribute = "VnIsIntegerMargin";
inline constexpr const char* kMinTapeLengthAttribute = "VnMinTapeLength";
inline constexpr const char* kMaxTapeLengthAttribute = "VnMaxTapeLength";
inline constexpr const char* kMinMarginAttribute = "VnMinMargin";
inline constexpr const char* kMaxMarginAttribute = "VnMaxMargin";
inline constexpr const char* kTapeTypeAttribute = "VnTapeType";
inline constexpr const char* kFileVersionAttribute = "FileVersion";

} // namespace ppd
