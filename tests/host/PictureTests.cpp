#include "HostTest.h"

#include "host/Clipboard.h"
#include "host/Picture.h"
#include "host/PictureBox.h"
#include "host/PictureFile.h"
#include "support/Canvas.h"
#include "support/TemporaryFolder.h"

#include <cstring>
#include <limits>

namespace host {

namespace {

/// A picture of one colour as a program holds it after reading a file.
automation::Ref<Picture> plain(int width, int height, std::uint32_t argb) {
    platform::PictureData data;
    data.format = platform::PictureFormat::Bmp;
    data.width = width;
    data.height = height;
    data.argb.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), argb);
    return automation::make<Picture>(data);
}

/// A bitmap file of 2 by 1 pixels, blue and red.
std::vector<std::uint8_t> smallBitmap() {
    std::vector<std::uint8_t> file = {'B', 'M', 62, 0, 0, 0, 0, 0, 0, 0, 54, 0, 0, 0,  40,
                                      0,   0,   0,  2, 0, 0, 0, 1, 0, 0, 0,  1, 0, 24, 0};
    file.resize(54);
    for (const int byte : {255, 0, 0, 0, 0, 255, 0, 0})
        file.push_back(static_cast<std::uint8_t>(byte));
    return file;
}

/// What the picture looks like on a chequered ground, so that what it leaves out shows too.
std::string lookOf(const Picture& picture) {
    const auto [width, height] = picture.pixels();
    test::Canvas ground(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            ground.set(x, y, (x + y) % 2 ? 0x123456 : 0xFEDCBA);
    picture.render(ground.dc(), 0, 0, width, height);
    std::string look;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            look += std::to_string(ground.at(x, y)) + ' ';
    return look;
}

/// A bitmap of its own with a slanting line of each of two colours.
platform::HBITMAP bitmapWithLines(int width, int height, int bits, platform::COLORREF a,
                                  platform::COLORREF b) {
    const platform::HDC dc = platform::CreateCompatibleDC({});
    const platform::HBITMAP bitmap =
        platform::CreateBitmap(width, height, 1, static_cast<platform::UINT>(bits), nullptr);
    const platform::HGDIOBJ former = platform::SelectObject(dc, bitmap);
    platform::PatBlt(dc, 0, 0, width, height, platform::BLACKNESS);
    for (int i = 0; i < std::min(width, height); ++i) {
        platform::SetPixel(dc, i, i, a);
        platform::SetPixel(dc, width - 1 - i, i, b);
    }
    platform::SelectObject(dc, former);
    platform::DeleteDC(dc);
    return bitmap;
}

/// An icon, or a cursor with its hot spot, of 20 by 16 pixels. Without colours it is monochrome.
platform::HICON iconOf(bool isIcon, bool colored) {
    constexpr platform::COLORREF White = 0xFFFFFF;
    platform::ICONINFO parts;
    parts.fIcon = isIcon;
    parts.xHotspot = 3;
    parts.yHotspot = 5;
    parts.hbmMask = bitmapWithLines(20, colored ? 16 : 32, 1, White, White);
    if (colored) parts.hbmColor = bitmapWithLines(20, 16, 32, 0x0000FF, 0x00FF00);
    const platform::HICON icon = platform::CreateIconIndirect(&parts);
    platform::DeleteObject(parts.hbmMask);
    if (colored) platform::DeleteObject(parts.hbmColor);
    return icon;
}

platform::HENHMETAFILE recordedRectangle() {
    const platform::RECT frame{0, 0, 1000, 500};
    const platform::HDC dc = platform::CreateEnhMetaFileW({}, nullptr, &frame, nullptr);
    platform::Rectangle(dc, 2, 2, 30, 15);
    return platform::CloseEnhMetaFile(dc);
}

} // namespace

class PictureTest : public HostTest {};

TEST_F(PictureTest, APictureOfAHandleIsTheSameAfterItsFileIsRead) {
    const automation::Ref<Picture> pictures[] = {
        automation::make<Picture>(bitmapWithLines(13, 9, 32, 0x0000FF, 0xFFC000)),
        automation::make<Picture>(bitmapWithLines(13, 9, 1, 0xFFFFFF, 0xFFFFFF)),
        automation::make<Picture>(iconOf(true, true)),
        automation::make<Picture>(iconOf(true, false)),
        automation::make<Picture>(iconOf(false, true)),
        automation::make<Picture>(recordedRectangle()),
    };
    for (const auto& picture : pictures) {
        SCOPED_TRACE(&picture - pictures);
        ASSERT_TRUE(picture->source().empty());
        const auto again = Picture::fromBytes(pictureFile(*picture));
        EXPECT_EQ(again->Type(), picture->Type());
        EXPECT_EQ(again->pixels(), picture->pixels());
        EXPECT_EQ(lookOf(*again), lookOf(*picture));
    }
    EXPECT_TRUE(pictureFile(Picture()).empty());
}

TEST_F(PictureTest, ACursorsFileKeepsItsHotSpot) {
    const auto cursor = automation::make<Picture>(iconOf(false, true));
    const std::vector<std::uint8_t> file = pictureFile(*cursor);
    platform::PictureData data;
    ASSERT_EQ(platform::decodePicture(file, data), platform::PictureError::None);
    EXPECT_EQ(data.hotSpot, (platform::POINT{3, 5}));
}

TEST_F(PictureTest, ItsSizeIsInHimetric) {
    const auto picture = plain(96, 48, 0xFF112233);
    EXPECT_EQ(picture->Type(), PictureType::Bitmap);
    EXPECT_EQ(picture->Width(), 2540);
    EXPECT_EQ(picture->Height(), 1270);
    EXPECT_NE(picture->Handle(), 0);
}

TEST_F(PictureTest, LoadPictureReadsAFileAndTheEmptyNameIsTheEmptyPicture) {
    const support::TemporaryFolder folder;
    const std::vector<std::uint8_t> bytes = smallBitmap();
    const platform::HANDLE file =
        platform::CreateFileW(folder.file(u"dos.bmp").c_str(), platform::GENERIC_WRITE, 0, nullptr,
                              platform::CREATE_ALWAYS, platform::FILE_ATTRIBUTE_NORMAL, {});
    platform::DWORD moved = 0;
    platform::WriteFile(file, bytes.data(), static_cast<platform::DWORD>(bytes.size()), &moved, nullptr);
    platform::CloseHandle(file);
    const auto picture = LoadPicture(folder.file(u"dos.bmp"));
    EXPECT_EQ(picture->pixels(), (platform::SIZE{2, 1}));
    EXPECT_EQ(picture->source(), bytes);
    EXPECT_EQ(LoadPicture()->Type(), PictureType::None);
    EXPECT_EQ(errorOf([&] { LoadPicture(folder.file(u"no.bmp")); }), 53);
}

TEST_F(PictureTest, BytesThatAreNoPictureAreAnError) {
    EXPECT_EQ(errorOf([] { Picture::fromBytes({1, 2, 3}); }), 481);
}

TEST_F(PictureTest, AResourceThatIsNotThereIsAnError) {
    EXPECT_EQ(errorOf([] { LoadResPicture(platform::ResourceName(60001), ResourcePicture::Icon); }), 326);
}

namespace {

/// An enhanced metafile of an inch by half an inch with a black rectangle, as a picture's file.
std::vector<std::uint8_t> smallMetafile() {
    const platform::RECT frame{0, 0, 2540, 1270};
    const platform::HDC dc = platform::CreateEnhMetaFileA({}, nullptr, &frame, nullptr);
    platform::PatBlt(dc, 0, 0, 200, 200, platform::BLACKNESS);
    const platform::HENHMETAFILE metafile = platform::CloseEnhMetaFile(dc);
    std::vector<std::uint8_t> bytes(platform::GetEnhMetaFileBits(metafile, 0, nullptr));
    platform::GetEnhMetaFileBits(metafile, static_cast<platform::UINT>(bytes.size()), bytes.data());
    platform::DeleteEnhMetaFile(metafile);
    return bytes;
}

} // namespace

TEST_F(PictureTest, AFrameLongerThanANumberIsAsLongAsOneReaches) {
    constexpr std::size_t frameAt = 24;
    constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max(),
                           least = std::numeric_limits<std::int32_t>::min();
    std::vector<std::uint8_t> bytes = smallMetafile();
    const platform::RECT frame{least, most, most, least};
    std::memcpy(bytes.data() + frameAt, &frame, sizeof frame);
    const auto picture = automation::make<Picture>(
        platform::SetEnhMetaFileBits(static_cast<platform::UINT>(bytes.size()), bytes.data()));
    EXPECT_EQ(picture->Width(), most);
    EXPECT_EQ(picture->Height(), least);
    EXPECT_GT(picture->pixels().cx, 0);
    EXPECT_LT(picture->pixels().cy, 0);
    EXPECT_EQ(errorOf([&] { Picture::fromBytes(bytes); }), automation::errors::InvalidPicture);
}

TEST_F(PictureTest, AnEnhancedMetafileHasTheSizeOfItsFrame) {
    const auto picture = Picture::fromBytes(smallMetafile());
    EXPECT_EQ(picture->Type(), PictureType::EnhMetafile);
    EXPECT_EQ(picture->Width(), 2540);
    EXPECT_EQ(picture->Height(), 1270);
    EXPECT_EQ(picture->pixels(), (platform::SIZE{96, 48}));
    EXPECT_NE(picture->Handle(), 0);
    EXPECT_EQ(picture->source(), smallMetafile());
}

TEST_F(PictureTest, AHandleOfTheCallersOutlivesThePicture) {
    const platform::HBITMAP bitmap = platform::CreateBitmap(4, 3, 1, 32, nullptr);
    { const auto picture = automation::make<Picture>(bitmap, platform::HPALETTE(), HandleOwner::Caller); }
    EXPECT_EQ(platform::GetObjectType(platform::HGDIOBJ(bitmap)), platform::OBJ_BITMAP);
    { const auto picture = automation::make<Picture>(bitmap); }
    EXPECT_EQ(platform::GetObjectType(platform::HGDIOBJ(bitmap)), 0u);
}

TEST_F(PictureTest, TheClipboardTakesABitmapAndGivesACopy) {
    Clipboard::Clear();
    EXPECT_EQ(Clipboard::GetData()->Type(), PictureType::None);
    Clipboard::SetData(*plain(5, 4, 0xFF112233), ClipboardFormat::DIB);
    EXPECT_TRUE(Clipboard::GetFormat(ClipboardFormat::Bitmap));
    EXPECT_TRUE(Clipboard::GetFormat(ClipboardFormat::DIB));
    EXPECT_FALSE(Clipboard::GetFormat(ClipboardFormat::EMetafile));
    const auto picture = Clipboard::GetData();
    EXPECT_EQ(picture->Type(), PictureType::Bitmap);
    EXPECT_EQ(picture->pixels(), (platform::SIZE{5, 4}));
    Clipboard::Clear();
    EXPECT_FALSE(Clipboard::GetFormat(ClipboardFormat::DIB));
}

TEST_F(PictureTest, TheClipboardTakesAMetafile) {
    Clipboard::Clear();
    Clipboard::SetData(*Picture::fromBytes(smallMetafile()));
    EXPECT_EQ(Clipboard::GetData(ClipboardFormat::EMetafile)->Width(), 2540);
    EXPECT_EQ(errorOf([] { Clipboard::GetData(ClipboardFormat::Text); }), 461);
    EXPECT_EQ(errorOf([] { Clipboard::SetData(*plain(1, 1, 0), ClipboardFormat::EMetafile); }), 461);
    EXPECT_EQ(errorOf([] { Clipboard::SetData(Picture()); }), 461);
    Clipboard::Clear();
}

class PictureBoxTest : public HostTest {
protected:
    void SetUp() override {
        form = makeForm();
        box = &form->add<PictureBox>(u"box");
        box->BorderStyle(BorderStyle::None);
        box->Extender().Move(150, 150, 1500, 750);
    }

    automation::Ref<Form> form;
    PictureBox* box = nullptr;
};

TEST_F(PictureBoxTest, ItPaintsThroughItsEventAndItsContext) {
    int painted = 0;
    box->Paint.join([&] {
        ++painted;
        const platform::RECT area{0, 0, 10, 10};
        const platform::HBRUSH brush = platform::CreateSolidBrush(0x0000FF);
        platform::FillRect(box->hDC(), &area, brush);
        platform::DeleteObject(brush);
    });
    show(*form);
    EXPECT_EQ(painted, 1);
    EXPECT_EQ(desk.look(box->hWnd()).at(5, 5), 0x0000FFu);
    EXPECT_EQ(desk.look(box->hWnd()).at(15, 5), rgbFromOle(box->BackColor()));
}

TEST_F(PictureBoxTest, DrawingOutsideOfPaintIsSeenAtOnce) {
    show(*form);
    const platform::RECT area{0, 0, 10, 10};
    const platform::HBRUSH brush = platform::CreateSolidBrush(0x00FF00);
    platform::FillRect(box->hDC(), &area, brush);
    platform::DeleteObject(brush);
    EXPECT_EQ(desk.look(box->hWnd()).at(5, 5), 0x00FF00u);
}

TEST_F(PictureBoxTest, PaintPictureStretchesAndAutoRedrawKeepsIt) {
    box->AutoRedraw(true);
    box->ScaleMode(ScaleMode::Pixels);
    box->PaintPicture(*plain(2, 2, 0xFF0000FF), 10, 10, 20, 5);
    show(*form);
    const support::Picture seen = desk.look(box->hWnd());
    EXPECT_EQ(seen.at(10, 10), 0xFF0000u);
    EXPECT_EQ(seen.at(29, 14), 0xFF0000u);
    EXPECT_NE(seen.at(30, 14), 0xFF0000u);
    EXPECT_NE(seen.at(29, 15), 0xFF0000u);
}

TEST_F(PictureBoxTest, ItsPictureStandsBehindAndAutoSizeFitsTheBox) {
    box->Picture(plain(30, 20, 0xFF00FF00));
    show(*form);
    EXPECT_EQ(desk.look(box->hWnd()).at(29, 19), 0x00FF00u);
    EXPECT_EQ(desk.look(box->hWnd()).at(30, 19), rgbFromOle(box->BackColor()));
    box->AutoSize(true);
    EXPECT_EQ(box->clientSize(), (platform::SIZE{30, 20}));
    box->BorderStyle(BorderStyle::FixedSingle);
    box->AutoSize(true);
    EXPECT_EQ(box->clientSize(), (platform::SIZE{30, 20}));
    EXPECT_EQ(box->Width(), 34 * 15);
}

TEST_F(PictureBoxTest, ABorderTakesFromTheClientArea) {
    EXPECT_EQ(box->clientSize(), (platform::SIZE{100, 50}));
    box->BorderStyle(BorderStyle::FixedSingle);
    EXPECT_EQ(box->clientSize(), (platform::SIZE{96, 46}));
    box->Appearance(Appearance::Flat);
    EXPECT_EQ(box->clientSize(), (platform::SIZE{98, 48}));
}

TEST_F(PictureBoxTest, KeysAndMouseAreItsEvents) {
    Log log;
    box->KeyDown.join([&](short& code, short&) { log.push_back("KeyDown " + std::to_string(code)); });
    box->MouseDown.join(
        [&](short& button, short&, float&, float&) { log.push_back("MouseDown " + std::to_string(button)); });
    box->Click.join([&] { log.push_back("Click"); });
    show(*form);
    key('A');
    click(*box);
    EXPECT_EQ(log, (Log{"KeyDown 65", "MouseDown 1", "Click"}));
}

TEST_F(PictureBoxTest, ItIsTheAmbientContainerOfItsControls) {
    auto& inner = form->add<Probe>(u"p", NotInArray, box);
    inner.take();
    box->BackColor(0x00FFFF);
    EXPECT_EQ(inner.log, (Log{"AmbientChanged BackColor"}));
    EXPECT_EQ(inner.Ambient().BackColor(), 0x00FFFF);
    box->Font()->Size(20);
    EXPECT_EQ(inner.Ambient().Font()->Size(), automation::Currency(20));
    const automation::Ref<Probe> alive(&inner);
    form->remove(*box);
    EXPECT_TRUE(form->controls().empty());
    EXPECT_EQ(inner.log.back(), "Terminate");
}

} // namespace host
