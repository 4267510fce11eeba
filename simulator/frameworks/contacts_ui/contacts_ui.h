// Contacts UI, as far as CallBar shows it: the member list, its cells and data sources, and the monogram generator.
#pragma once

#include "simulator/frameworks/contacts_ui/ABMemberCell.h"
#include "simulator/frameworks/contacts_ui/ABMembersDataSource.h"
#include "simulator/frameworks/contacts_ui/ABMembersViewController.h"
#include "simulator/frameworks/contacts_ui/ABMonogrammer.h"
#include "simulator/frameworks/contacts_ui/ABUIPerson.h"
