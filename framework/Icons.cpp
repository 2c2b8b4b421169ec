#include "framework/Icons.h"

#include "framework/Module.h"

namespace nux {

UniqueIcon LoadSmallIcon(UINT icon) noexcept {
    return UniqueIcon(static_cast<HICON>(LoadImageA(ResourceModule(), MAKEINTRESOURCEA(icon), IMAGE_ICON,
                                                    smallIconSize, smallIconSize, LR_DEFAULTCOLOR)));
}

UniqueImageList LoadSmallIcons(std::initializer_list<UINT> icons) noexcept {
    const int count = static_cast<int>(icons.size());
    // Without a colour depth of its own the list would reduce the icons to 16 colours.
    UniqueImageList images(ImageList_Create(smallIconSize, smallIconSize, ILC_COLOR32 | ILC_MASK, count, 0));
    if (!images)
        return images;
    ImageList_SetImageCount(images.Get(), count);
    int index = 0;
    for (const UINT icon : icons)
        ImageList_ReplaceIcon(images.Get(), index++, LoadSmallIcon(icon).Get());
    return images;
}

}  // namespace nux
