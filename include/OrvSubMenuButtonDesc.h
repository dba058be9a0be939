#ifndef ORV_SUB_MENU_BUTTON_DESC_H
#define ORV_SUB_MENU_BUTTON_DESC_H

#include "OrvButtonDesc.h"

class OrvMenu;

/// What a sub-menu button is created from: a button's record and the menu it opens.
struct OrvSubMenuButtonDesc : public OrvButtonDesc
{
    OrvSubMenuButtonDesc();

    OrvMenu* subMenu;
};

#endif
