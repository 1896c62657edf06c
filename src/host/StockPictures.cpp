#include "host/StockPictures.h"

#include "host/DialogIcons.h"
#include "host/StockBitmaps.h"
#include "host/StockCursors.h"

namespace host {

automation::Ref<Picture> stockPicture(platform::ResourceType kind, std::int32_t number) {
    if (kind == platform::ResourceType::Icon) return stockIcon(number);
    const auto data = kind == platform::ResourceType::Cursor ? stockCursor(number) : stockBitmap(number);
    return data ? automation::make<Picture>(*data) : automation::Ref<Picture>();
}

} // namespace host
