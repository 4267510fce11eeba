#include "simulator/frameworks/contacts_ui/contacts_ui.h"
