#pragma once

#include "automation/Object.h"
#include "automation/String.h"
#include "platform/gdi.h"
#include "platform/pictures.h"
#include "platform/resources.h"

#include <memory>

namespace host {

enum class PictureType : short { None = 0, Bitmap = 1, Metafile = 2, Icon = 3, EnhMetafile = 4 };

/// A picture object: a bitmap or an icon with its size. Immutable; the GDI handle is its own.
class Picture : public automation::Object {
public:
    /// The empty picture.
    Picture() = default;
    /// From decoded pixels.
    explicit Picture(const platform::PictureData& data);
    /// Takes the handle over.
    explicit Picture(platform::HBITMAP bitmap);
    explicit Picture(platform::HICON icon);
    ~Picture() override;

    PictureType Type() const { return type_; }
    /// The bitmap's or icon's handle as a program's Long.
    std::int32_t Handle() const;
    /// In hundredths of a millimetre.
    std::int32_t Width() const;
    std::int32_t Height() const;

    platform::HBITMAP hBitmap() const { return bitmap_; }
    platform::HICON hIcon() const { return icon_; }
    /// In pixels.
    platform::SIZE pixels() const { return size_; }
    /// Draws the whole picture, stretched to the size; pixels that the picture leaves out keep what was
    /// there.
    void render(platform::HDC dc, int x, int y, int width, int height) const;

    /// The bytes that the picture was read from; empty if it was made from a handle.
    const std::vector<std::uint8_t>& source() const { return source_; }
    /// From the bytes of a picture file. Throws automation::Error 481 for bytes that are no picture.
    static automation::Ref<Picture> fromBytes(std::vector<std::uint8_t> bytes);

    const automation::ClassTable& classTable() const override { return table(); }
    static const automation::ClassTable& table();

private:
    void takePixels(const platform::PictureData& data);

    PictureType type_ = PictureType::None;
    platform::HBITMAP bitmap_;
    platform::HICON icon_;
    platform::SIZE size_;
    std::vector<std::uint8_t> source_;
};

/// Type of a picture in resources.
enum class ResourcePicture : short { Bitmap = 0, Icon = 1, Cursor = 2 };

/// Reads a picture file; the empty name gives the empty picture. Throws automation::Error 53 for a file that
/// isn't there and 481 for one that is no picture.
automation::Ref<Picture> LoadPicture(const automation::String& file = {});

/// A picture of this program's resources; throws automation::Error 326 if there is none of that name.
automation::Ref<Picture> LoadResPicture(const platform::ResourceName& id, ResourcePicture type);

} // namespace host
