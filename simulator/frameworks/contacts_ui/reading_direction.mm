#include "simulator/frameworks/contacts_ui/reading_direction.h"

#include "simulator/frameworks/uikit/controller/UIApplication.h"

BOOL ABUIReadsFromTheRight(void) {
    return
        [[UIApplication sharedApplication] userInterfaceLayoutDirection] == UIUserInterfaceLayoutDirectionRightToLeft;
}
