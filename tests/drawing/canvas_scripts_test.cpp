// The written drawing scripts, which are played on both systems and compared, against the canvas's members.

#include "automation/ClassTable.h"
#include "conformance/Script.h"
#include "drawing/cCanvas.h"
#include "platform/locale.h"
#include "platform/processes.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

using automation::MemberKind;

namespace {

/// The member that a line calls, with " =" where it writes a property; empty for all else.
std::string memberOf(const std::vector<std::string>& words) {
    const std::size_t first = words[0] == "show" ? 1 : 0;
    const bool hasSign = first + 2 < words.size() && words[first + 1] == "=";
    if (!hasSign) return first < words.size() ? words[first] : std::string();
    const std::u16string name(words[first].begin(), words[first].end());
    const bool writes = tesela::cCanvas::table().find(name) != automation::DISPID_UNKNOWN;
    return writes ? words[first] + " =" : words[first + 2];
}

/// Scripts that call each member.
std::map<std::string, int> scriptsByMember() {
    const std::string data = platform::utf8FromWide(platform::environmentVariable(u"TESELA_TEST_DATA"));
    std::map<std::string, int> counts;
    for (const conformance::Script& script : conformance::readScripts(data + "/conformance/scripts")) {
        std::set<std::string> called;
        for (const conformance::Line& line : script.lines)
            called.insert(memberOf(line.words));
        for (const std::string& member : called)
            ++counts[member];
    }
    return counts;
}

} // namespace

TEST(cCanvas_Scripts, CallEachMemberInAtLeastThreeOfThem) {
    constexpr int least = 3;
    std::map<std::string, int> counts = scriptsByMember();
    ASSERT_FALSE(counts.empty());
    for (const automation::Member& member : tesela::cCanvas::table().members()) {
        const std::string name = member.name.utf8() + (member.kind == MemberKind::Let ? " =" : "");
        EXPECT_GE(counts[name], least) << name;
    }
}
