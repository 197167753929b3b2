#pragma once

#include <cstdint>

#include "platform/coregraphics/cg_image.h"
#include "platform/foundation/property_list.h"

/// The decoders behind decodeImage. Internal. Each answers null for what it cannot decode whole.

bool isJpeg(const NSData& data);
CGImageRef decodeJpeg(const NSData& data, int& exifOrientation);

bool isPng(const NSData& data);
CGImageRef decodePng(const NSData& data);

/// False for a picture whose header announces more than is worth decoding, or more than can be drawn.
bool isAcceptablePictureSize(std::uint32_t width, std::uint32_t height);
