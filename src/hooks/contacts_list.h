// The system's Contacts member list, as CallBar shows it: a picture at the leading edge of every row.
#pragma once

#include "src/hooks/host_classes.h"
#include "src/platform/foundation/NSObject.h"
#include "src/platform/foundation/NSString.h"
#include "src/platform/hook.h"
#include "src/platform/uikit/UIColor.h"
#include "src/platform/uikit/UIFont.h"
#include "src/platform/uikit/UITableView.h"

namespace zelka {

CGSize memberDrawText(ABMemberCell self, SEL command, NSString text, UIColor color, UIColor shadowColor,
                      CGSize shadowOffset, CGPoint point, float width, UIFont font, NSInteger lineBreakMode);
using MemberDrawText =
    Hook<"ABMemberCell",
         "_drawText:withColor:shadowColor:shadowOffset:atPoint:forWidth:withFont:lineBreakMode:", &memberDrawText>;

void memberLayout(ABMemberCell self, SEL command);
using MemberLayout = Hook<"ABMemberCell", "layoutSubviews", &memberLayout>;

UITableViewCell memberCell(NSObject self, SEL command, UITableView table, NSIndexPath indexPath);
using MemberCell = Hook<"ABMembersDataSource", "tableView:cellForRowAtIndexPath:", &memberCell>;

UITableViewCell foundMemberCell(NSObject self, SEL command, UITableView table, NSIndexPath indexPath);
using FoundMemberCell = Hook<"ABMembersFilteredDataSource", "tableView:cellForRowAtIndexPath:", &foundMemberCell>;

}  // namespace zelka
