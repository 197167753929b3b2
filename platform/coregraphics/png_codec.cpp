// PNG, with libpng.

#include <png.h>

#include <algorithm>
#include <cstring>
#include <string_view>

#include "platform/coregraphics/error_jump.h"
#include "platform/coregraphics/image_codec.h"
#include "platform/coregraphics/image_decoders.h"
#include "platform/coregraphics/picture_size.h"

namespace {

constexpr std::size_t signatureLength = 8;
constexpr std::size_t chunkLengthBytes = 4, chunkTypeBytes = 4, checksumBytes = 4;
constexpr std::size_t chunkFrame = chunkLengthBytes + chunkTypeBytes + checksumBytes;  // Around its data.
constexpr std::string_view endChunk = "IEND";
/// Bytes of file. The library unpacks whatever follows the pixels, a thousandfold, to find its end; an
/// ordinary file has a handful.
constexpr std::size_t mostAfterPixels = 16 << 10;
constexpr int screenPixelBytes = 4;
constexpr int alphaByte = 3;
constexpr int maxComponent = 255;
constexpr int componentBits = 8;

[[noreturn]] void fail(png_structp png, png_const_charp) {
  static_cast<ErrorJump*>(png_get_error_ptr(png))->fail();
}

void ignoreWarning(png_structp, png_const_charp) {}

/// Whether the file goes on to its end chunk: one that breaks off after its last row is broken all the same.
bool isWhole(const NSData& file) {
  for (std::size_t at = signatureLength; at + chunkFrame <= file.size();) {
    const std::size_t length = png_get_uint_32(file.data() + at);
    if (length > file.size() - at - chunkFrame) return false;
    if (std::memcmp(file.data() + at + chunkLengthBytes, endChunk.data(), chunkTypeBytes) == 0) return true;
    at += chunkFrame + length;
  }
  return false;
}

std::uint8_t premultiplied(int component, int alpha) {
  return std::uint8_t((component * alpha + maxComponent / 2) / maxComponent);
}

std::uint8_t unpremultiplied(int component, int alpha) {
  return std::uint8_t(std::min((component * maxComponent + alpha / 2) / alpha, maxComponent));
}

void premultiplyRow(std::uint8_t* pixel, std::uint32_t width) {
  for (; width > 0; --width, pixel += screenPixelBytes) {
    const int alpha = pixel[alphaByte];
    if (alpha == maxComponent) continue;
    for (int k = 0; k < alphaByte; ++k) pixel[k] = premultiplied(pixel[k], alpha);
  }
}

void unpremultiplyRow(std::uint8_t* pixel, int width) {
  for (; width > 0; --width, pixel += screenPixelBytes) {
    const int alpha = pixel[alphaByte];
    if (alpha == 0 || alpha == maxComponent) continue;
    for (int k = 0; k < alphaByte; ++k) pixel[k] = unpremultiplied(pixel[k], alpha);
  }
}

/// One picture being decoded. Each step answers false when it failed; after that only destruction is left.
class Reader {
 public:
  explicit Reader(const NSData& data)
      : rest_(data.data()),
        restSize_(data.size()),
        png_(png_create_read_struct(PNG_LIBPNG_VER_STRING, &error_, fail, ignoreWarning)),
        info_(png_ ? png_create_info_struct(png_) : nullptr) {}
  Reader(const Reader&) = delete;
  Reader& operator=(const Reader&) = delete;
  ~Reader() { png_destroy_read_struct(&png_, &info_, nullptr); }

  bool readHeader() {
    return info_ && error_.guard([this] {
      png_set_read_fn(png_, this, takeBytes);
      // Whatever is no part of the pixels is passed over: texts and profiles unpack to any size.
      png_set_keep_unknown_chunks(png_, PNG_HANDLE_CHUNK_NEVER, nullptr, -1);
      png_read_info(png_, info_);
      const int colorType = png_get_color_type(png_, info_);
      hasAlpha_ = (colorType & PNG_COLOR_MASK_ALPHA) || png_get_valid(png_, info_, PNG_INFO_tRNS);
      isGray_ = !hasAlpha_ && colorType == PNG_COLOR_TYPE_GRAY;
      width_ = png_get_image_width(png_, info_);
      height_ = png_get_image_height(png_, info_);
    });
  }

  std::uint32_t width() const { return width_; }
  std::uint32_t height() const { return height_; }
  bool hasAlpha() const { return hasAlpha_; }
  bool isGray() const { return isGray_; }

  /// Decodes to `pixels`, which has room for all rows: a byte a pixel for grey ones, four for the others, in
  /// screen order, not premultiplied. Whatever the file's depth, palette or transparent colour, that is what
  /// comes out.
  bool readPixels(std::uint8_t* pixels, std::size_t bytesPerRow) {
    return error_.guard([this, pixels, bytesPerRow] {
      png_set_expand(png_);
      png_set_scale_16(png_);
      if (!isGray_) {
        png_set_gray_to_rgb(png_);
        png_set_bgr(png_);
        png_set_add_alpha(png_, maxComponent, PNG_FILLER_AFTER);
      }
      const int passes = png_set_interlace_handling(png_);
      png_read_update_info(png_, info_);
      if (png_get_rowbytes(png_, info_) != bytesPerRow) error_.fail();
      for (int pass = 0; pass < passes; ++pass) {
        for (std::uint32_t y = 0; y < height_; ++y)
          png_read_row(png_, pixels + std::size_t{y} * bytesPerRow, nullptr);
      }
    });
  }

 private:
  static void takeBytes(png_structp png, png_bytep to, std::size_t count) {
    auto& reader = *static_cast<Reader*>(png_get_io_ptr(png));
    if (count > reader.restSize_) reader.error_.fail();
    if (reader.isPastPixels()) reader.afterPixels_ += count;
    if (reader.afterPixels_ > mostAfterPixels) reader.error_.fail();
    std::memcpy(to, reader.rest_, count);
    reader.rest_ += count;
    reader.restSize_ -= count;
  }

  /// Whether the last row of the last pass is behind the library, which it counts further then.
  bool isPastPixels() const {
    return height_ > 0 && (png_get_current_row_number(png_) >= height_ ||
                           png_get_current_pass_number(png_) >= PNG_INTERLACE_ADAM7_PASSES);
  }

  const std::uint8_t* rest_;  // Of the caller's data.
  std::size_t restSize_;
  std::size_t afterPixels_ = 0;  // Bytes taken.
  ErrorJump error_;
  png_structp png_;
  png_infop info_;
  std::uint32_t width_ = 0, height_ = 0;
  bool hasAlpha_ = false;
  bool isGray_ = false;
};

/// One picture being encoded.
class Writer {
 public:
  explicit Writer(NSData& target)
      : target_(target),
        png_(png_create_write_struct(PNG_LIBPNG_VER_STRING, &error_, fail, ignoreWarning)),
        info_(png_ ? png_create_info_struct(png_) : nullptr) {}
  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;
  ~Writer() { png_destroy_write_struct(&png_, &info_); }

  /// `colorType` is PNG_COLOR_TYPE_GRAY, _RGB or _RGB_ALPHA; rows of the latter two are given in screen
  /// layout.
  bool writeHeader(int width, int height, int colorType) {
    return info_ && error_.guard([=, this] {
      png_set_write_fn(png_, &target_, appendBytes, [](png_structp) {});
      png_set_IHDR(png_, info_, std::uint32_t(width), std::uint32_t(height), componentBits, colorType,
                   PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
      png_write_info(png_, info_);
      if (colorType != PNG_COLOR_TYPE_GRAY) png_set_bgr(png_);
      if (colorType == PNG_COLOR_TYPE_RGB) png_set_filler(png_, 0, PNG_FILLER_AFTER);
    });
  }

  bool writeRow(const std::uint8_t* row) {
    return error_.guard([=, this] { png_write_row(png_, row); });
  }

  bool writeEnd() {
    return error_.guard([this] { png_write_end(png_, info_); });
  }

 private:
  static void appendBytes(png_structp png, png_bytep bytes, std::size_t count) {
    auto& target = *static_cast<NSData*>(png_get_io_ptr(png));
    target.insert(target.end(), bytes, bytes + count);
  }

  NSData& target_;
  ErrorJump error_;
  png_structp png_;
  png_infop info_;
};

int colorTypeFor(const CGPixelFormat& format) {
  if (format.colorSpace == CGColorSpace::DeviceGray) return PNG_COLOR_TYPE_GRAY;
  return format.bitmapInfo == kCGImageAlphaNoneSkipFirstLittle ? PNG_COLOR_TYPE_RGB
                                                               : PNG_COLOR_TYPE_RGB_ALPHA;
}

}  // namespace

bool isPng(const NSData& data) {
  return data.size() >= signatureLength && png_sig_cmp(data.data(), 0, signatureLength) == 0;
}

CGImageRef decodePng(const NSData& data, std::uint32_t largestSide) {
  Reader reader(data);
  if (!isWhole(data) || !reader.readHeader()) return nullptr;
  if (!isAcceptablePictureSize(reader.width(), reader.height(), largestSide)) return nullptr;

  CGPixelFormat format;
  if (reader.isGray()) {
    format = {componentBits, componentBits, CGColorSpace::DeviceGray, kCGImageAlphaNone};
  } else if (!reader.hasAlpha()) {
    format.bitmapInfo = kCGImageAlphaNoneSkipFirstLittle;
  }
  const std::size_t bytesPerRow = reader.width() * format.bytesPerPixel();
  auto pixels = std::make_shared<std::vector<std::uint8_t>>(bytesPerRow * reader.height());
  if (!reader.readPixels(pixels->data(), bytesPerRow)) return nullptr;
  if (reader.hasAlpha()) {
    for (std::uint32_t y = 0; y < reader.height(); ++y) {
      premultiplyRow(pixels->data() + y * bytesPerRow, reader.width());
    }
  }
  return CGImage::create(int(reader.width()), int(reader.height()), format, bytesPerRow, std::move(pixels));
}

NSData encodePng(const CGImageRef& image) {
  if (!image) return {};
  const bool gray = image->format().colorSpace == CGColorSpace::DeviceGray;
  const CGImageRef source = gray ? image : CGImage::inScreenFormat(image);
  const int colorType = colorTypeFor(source->format());
  const std::size_t rowBytes = std::size_t(source->width()) * source->format().bytesPerPixel();

  NSData encoded;
  Writer writer(encoded);
  std::vector<std::uint8_t> row(rowBytes);
  bool written = writer.writeHeader(source->width(), source->height(), colorType);
  for (int y = 0; written && y < source->height(); ++y) {
    std::copy_n(source->row(y), rowBytes, row.data());
    if (colorType == PNG_COLOR_TYPE_RGB_ALPHA) unpremultiplyRow(row.data(), source->width());
    written = writer.writeRow(row.data());
  }
  return written && writer.writeEnd() ? encoded : NSData();
}
