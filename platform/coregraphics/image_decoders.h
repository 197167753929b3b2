#pragma once

#include "platform/coregraphics/cg_image.h"
#include "platform/foundation/ns_data.h"

/// The decoders behind decodeImage. Internal. Each answers null for what it cannot decode whole.

bool isJpeg(const NSData& data);
CGImageRef decodeJpeg(const NSData& data, int& exifOrientation);

bool isPng(const NSData& data);
CGImageRef decodePng(const NSData& data);
