#pragma once

#include "automation/Object.h"
#include "automation/String.h"
#include "platform/metafiles.h"
#include "platform/pictures.h"
#include "platform/resources.h"

#include <memory>

namespace host {

enum class PictureType : short { None = 0, Bitmap = 1, Metafile = 2, Icon = 3, EnhMetafile = 4 };

/// Whether a picture ends the handle that it was made of.
enum class HandleOwner { Picture, Caller };

/// A picture object: a bitmap, an icon or a metafile with its size. Immutable.
class Picture : public automation::Object {
public:
    /// The empty picture.
    Picture() = default;
    /// From decoded pixels.
    explicit Picture(const platform::PictureData& data);
    /// Wraps a handle. A palette goes with its bitmap and has the same owner. A metafile that was made of an
    /// older one counts as PictureType::Metafile.
    explicit Picture(platform::HBITMAP bitmap, platform::HPALETTE palette = {},
                     HandleOwner owner = HandleOwner::Picture);
    explicit Picture(platform::HICON icon, HandleOwner owner = HandleOwner::Picture);
    explicit Picture(platform::HENHMETAFILE metafile, PictureType type = PictureType::EnhMetafile,
                     HandleOwner owner = HandleOwner::Picture);
    ~Picture() override;

    PictureType Type() const { return type_; }
    /// The bitmap's, icon's or metafile's handle as a program's Long.
    std::int32_t Handle() const;
    /// The handle of a bitmap's palette as a program's Long; 0 if it has none.
    std::int32_t hPal() const { return static_cast<std::int32_t>(palette_.value); }
    /// In hundredths of a millimetre.
    std::int32_t Width() const;
    std::int32_t Height() const;

    platform::HBITMAP hBitmap() const { return bitmap_; }
    platform::HICON hIcon() const { return icon_; }
    platform::HENHMETAFILE hEnhMetaFile() const { return metafile_; }
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
    static automation::Ref<Picture> fromMetafile(const std::vector<std::uint8_t>& bytes);
    void takePixels(const platform::PictureData& data);

    PictureType type_ = PictureType::None;
    platform::HBITMAP bitmap_;
    platform::HPALETTE palette_;
    platform::HICON icon_;
    platform::HENHMETAFILE metafile_;
    HandleOwner owner_ = HandleOwner::Picture;
    platform::SIZE size_;         ///< Pixels
    platform::SIZE himetricSize_; ///< Of a metafile, which has no pixels of its own
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
