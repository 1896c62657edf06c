#include "host/Session.h"

#include "host/Form.h"

namespace host {

Session& session() {
    // Never destroyed: fonts and forms may outlive any order of the program's own statics.
    static Session& only = *new Session;
    return only;
}

} // namespace host
