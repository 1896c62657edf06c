#pragma once
// Enhanced metafiles: drawings kept as records instead of pixels, in memory or in .emf files, and the older
// Windows metafiles, which are turned into them. A metafile belongs to the caller, who ends it with
// DeleteEnhMetaFile. Operations on a handle that is dead or of another kind return no handle, 0 or FALSE.
//
// The frame of a metafile is in hundredths of a millimetre, its bounds in pixels of the device that it was
// recorded for. Strings of bytes are in the ANSI code page.

#include "platform/gdi.h"

#include <span>

namespace platform {

/// The first record of a metafile.
struct ENHMETAHEADER {
    DWORD iType = 1;
    DWORD nSize = 0; ///< Of this record, in bytes
    RECT rclBounds;  ///< What is drawn on, in pixels; right and bottom inclusive
    RECT rclFrame;   ///< The picture's rectangle, in hundredths of a millimetre; right and bottom inclusive
    DWORD dSignature = 0x464D4520; ///< " EMF"
    DWORD nVersion = 0x00010000;
    DWORD nBytes = 0; ///< Of the whole metafile
    DWORD nRecords = 0;
    WORD nHandles = 1; ///< Entries of the table of objects; entry 0 is the metafile itself
    WORD sReserved = 0;
    DWORD nDescription = 0; ///< Units of the description with its NULs
    DWORD offDescription = 0;
    DWORD nPalEntries = 0;
    SIZE szlDevice;      ///< Of the recording device, in pixels
    SIZE szlMillimeters; ///< The same in millimetres
    DWORD cbPixelFormat = 0;
    DWORD offPixelFormat = 0;
    DWORD bOpenGL = 0;
    SIZE szlMicrometers;
};

/// The beginning of each record; `nSize` counts the record's bytes, a multiple of 4, these eight included.
struct ENHMETARECORD {
    DWORD iType = 0;
    DWORD nSize = 0;
};

/// How the size of an older metafile is meant.
struct METAFILEPICT {
    LONG mm = 8;   ///< MM_ANISOTROPIC, MM_ISOTROPIC or another mapping mode
    LONG xExt = 0; ///< Hundredths of a millimetre for the two modes named; 0 when unknown
    LONG yExt = 0;
};

/// A context whose drawing is recorded, for the device of `reference` (the screen for no handle). `file` may
/// be null, which keeps the records in memory; `frame` null makes the frame that of what is drawn.
/// `description` is null or "program NUL picture NUL NUL". No handle when the file can't be made.
HDC CreateEnhMetaFileA(HDC reference, const char* file, const RECT* frame, const char* description);
HDC CreateEnhMetaFileW(HDC reference, const char16_t* file, const RECT* frame, const char16_t* description);

/// Ends the recording and the context.
HENHMETAFILE CloseEnhMetaFile(HDC dc);
/// Ends the handle; a file on disk stays.
BOOL DeleteEnhMetaFile(HENHMETAFILE metafile);

/// Draws the metafile with its frame scaled to `rect`, in logical units. The state of the context is the same
/// before and after. Records that are broken are left out, and the result is FALSE then.
BOOL PlayEnhMetaFile(HDC dc, HENHMETAFILE metafile, const RECT* rect);

/// Reads a file.
HENHMETAFILE GetEnhMetaFileA(const char* file);
HENHMETAFILE GetEnhMetaFileW(const char16_t* file);
/// A second metafile with the same records, in memory when `file` is null.
HENHMETAFILE CopyEnhMetaFileA(HENHMETAFILE metafile, const char* file);
HENHMETAFILE CopyEnhMetaFileW(HENHMETAFILE metafile, const char16_t* file);

/// The number of bytes of the metafile; copies them when `data` is given, or gives 0 when `size` is too
/// small.
UINT GetEnhMetaFileBits(HENHMETAFILE metafile, UINT size, BYTE* data);
/// A metafile in memory of the bytes of an .emf file; no handle when its header is broken.
HENHMETAFILE SetEnhMetaFileBits(UINT size, const BYTE* data);
/// A metafile of the records of an older one, without a placeable header. `picture` null takes the size of
/// the reference device.
HENHMETAFILE SetWinMetaFileBits(UINT size, const BYTE* data, HDC reference, const METAFILEPICT* picture);

/// Copies the header; returns its size in bytes.
UINT GetEnhMetaFileHeader(HENHMETAFILE metafile, UINT size, ENHMETAHEADER* header);
/// Copies at most `size` units of the description, with its NULs. Returns the number copied, or the whole
/// number for a null buffer; 0 when there is none.
UINT GetEnhMetaFileDescriptionW(HENHMETAFILE metafile, UINT size, char16_t* description);

/// Calls `each` with every record, header and end included, until it returns false. FALSE when it did or when
/// the records are broken.
using MetafileEnumerator = std::function<bool(DWORD type, std::span<const BYTE> record)>;
BOOL EnumEnhMetaFile(HENHMETAFILE metafile, const MetafileEnumerator& each);

/// A metafile with the size that its file states.
struct MetafilePicture {
    HENHMETAFILE metafile; ///< The caller's
    bool isOlder = false;  ///< Made of a Windows metafile
    LONG widthHimetric = 0;
    LONG heightHimetric = 0;
};

/// Reads the bytes of an .emf file, or of a .wmf file with a placeable header; no handle for others, a size
/// of nothing included. The platform loads no .wmf file without that header either, whatever extents it sets.
MetafilePicture readMetafilePicture(std::span<const BYTE> file);

/// Puts bytes of the program's own among the records.
BOOL GdiComment(HDC dc, UINT size, const BYTE* data);

} // namespace platform
