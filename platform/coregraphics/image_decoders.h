#pragma once

#include "platform/coregraphics/cg_image.h"
#include "platform/foundation/ns_data.h"

/// The decoders behind decodeImage. Internal. Each answers null for what it cannot decode whole, and,
/// by its header, for what has more than `largestSide` pixels a side.

bool isJpeg(const NSData& data);
CGImageRef decodeJpeg(const NSData& data, int& exifOrientation, std::uint32_t largestSide);

bool isPng(const NSData& data);
CGImageRef decodePng(const NSData& data, std::uint32_t largestSide);
