#include "activex/windows/Pictures.h"

#include "activex/windows/Values.h"

namespace activex {

namespace {

::HBITMAP copyOf(::HBITMAP bitmap) {
    return static_cast<::HBITMAP>(::CopyImage(bitmap, IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
}

/// What the system is told of a picture; the picture object of the system owns the copied handle.
::PICTDESC descriptionOf(const host::Picture& picture) {
    using platform::driver::native;
    ::PICTDESC description{};
    description.cbSizeofstruct = sizeof description;
    switch (picture.Type()) {
    case host::PictureType::Bitmap:
        description.picType = PICTYPE_BITMAP;
        description.bmp.hbitmap = copyOf(native(picture.hBitmap()));
        break;
    case host::PictureType::Icon:
        description.picType = PICTYPE_ICON;
        description.icon.hicon = ::CopyIcon(native(picture.hIcon()));
        break;
    case host::PictureType::Metafile:
    case host::PictureType::EnhMetafile:
        description.picType = PICTYPE_ENHMETAFILE;
        description.emf.hemf = ::CopyEnhMetaFileW(native(picture.hEnhMetaFile()), nullptr);
        break;
    case host::PictureType::None:
        description.picType = static_cast<::UINT>(PICTYPE_NONE);
        break;
    }
    return description;
}

} // namespace

::IDispatch* pictureFace(const host::Picture& picture) {
    ::PICTDESC description = descriptionOf(picture);
    ComPointer<::IDispatch> face;
    check(::OleCreatePictureIndirect(&description, __uuidof(::IDispatch), TRUE, face.address()));
    return face.detach();
}

automation::Ref<host::Picture> pictureOf(::IPicture& picture) {
    using platform::driver::handleFrom;
    SHORT type = PICTYPE_NONE;
    ::OLE_HANDLE value = 0;
    check(picture.get_Type(&type));
    check(picture.get_Handle(&value));
    const auto handle = reinterpret_cast<void*>(static_cast<::LONG_PTR>(static_cast<::LONG>(value)));
    switch (type) {
    case PICTYPE_BITMAP:
        return automation::make<host::Picture>(
            handleFrom<platform::HBITMAP>(copyOf(static_cast<::HBITMAP>(handle))));
    case PICTYPE_ICON:
        return automation::make<host::Picture>(
            handleFrom<platform::HICON>(::CopyIcon(static_cast<::HICON>(handle))));
    case PICTYPE_ENHMETAFILE:
        return automation::make<host::Picture>(handleFrom<platform::HENHMETAFILE>(
            ::CopyEnhMetaFileW(static_cast<::HENHMETAFILE>(handle), nullptr)));
    case PICTYPE_NONE:
    case PICTYPE_UNINITIALIZED:
        return automation::make<host::Picture>();
    default:
        automation::throwError(automation::errors::InvalidPicture);
    }
}

} // namespace activex
