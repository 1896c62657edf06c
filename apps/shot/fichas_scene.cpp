// The first record of the sample database, as fichas shows it.
#include "fichas/DataFile.h"
#include "fichas/window/RecordForm.h"
#include "platform/processes.h"
#include "shot/form_picture.h"
#include "shot/scenes.h"

#include <stdexcept>

namespace shot {

bool fichas(const std::string& file) {
    const std::u16string sample = platform::environmentVariable(u"TESELA_SAMPLE");
    if (sample.empty()) throw std::runtime_error("TESELA_SAMPLE doesn't name the sample database");
    std::shared_ptr<const ::fichas::DataFile> data = ::fichas::openFile(sample);
    const auto form = automation::make<::fichas::RecordForm>(data, data->tables().front());
    return savePicture(*form, file);
}

} // namespace shot
