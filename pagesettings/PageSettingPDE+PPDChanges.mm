// Following the PPD's marks: what other panels of the dialog choose, and what the dialog restores.

#include "pagesettings/ChoiceRules.hpp"
#include "pagesettings/PageSettingPDE.h"
#include "ppd/ChoiceLookup.hpp"
#include "ppd/Keywords.hpp"
#include "ppd/PDEChoice.h"
#include "ppd/PDEUtilsMethod13.h"

@implementation PageSettingPDE13_v100_ (PPDChanges)

// Nothing on screen changes here; the dialog has the panel refreshed when it is done.  A margin
// changed elsewhere is not taken over: the field holds what the user wants.
- (void)PPDOptionKeyValueDidChange:(NSString*)key ppdChoice:(NSString*)choice
{
    if (!key || !choice)
        return;
    const std::string_view keyword = [key UTF8String] ? [key UTF8String] : "";
    if (keyword == ppd::kQualityOption)
        mQuality_Selection = [PDEUtilsMethod13 findChoiceForString:choice choices:mQuality_Choices];
    else if (keyword == ppd::kResolutionOption)
        mResolution_Selection = [PDEUtilsMethod13 findChoiceForString:choice
                                                              choices:mResolution_Choices];
    else if (keyword == ppd::kCompressOption)
        mCompress_Selection = [PDEUtilsMethod13 findChoiceForString:choice
                                                            choices:mCompress_Choices];
    else if (keyword == ppd::kPrintModeOption)
        mVnResolution_Selection = [PDEUtilsMethod13 findChoiceForString:choice
                                                                choices:mVnResolution_Choices];
}

- (void)updateMarkedSelections:(int32_t)itemType
{
    if ((itemType & pagesettings::kQualityItem) && mQuality_Option)
        [self readMarkOf:ppd::kQualityOption choices:mQuality_Choices into:&mQuality_Selection];
    if ((itemType & pagesettings::kResolutionItem) && mResolution_Option)
        [self readMarkOf:ppd::kResolutionOption choices:mResolution_Choices
                    into:&mResolution_Selection];
    if ((itemType & pagesettings::kCompressItem) && mCompress_Option)
        [self readMarkOf:ppd::kCompressOption choices:mCompress_Choices into:&mCompress_Selection];
    if ((itemType & pagesettings::kPrintModeItem) && mVnResolution_Option)
        [self readMarkOf:ppd::kPrintModeOption choices:mVnResolution_Choices
                    into:&mVnResolution_Selection];
}

- (void)readMarkOf:(const char*)key choices:(NSArray*)choices into:(PDEChoice**)selection
{
    const NSInteger index = [self indexOfMarkedOrDefault:choices key:key];
    if (ppd::isInList(index, [choices count]))
        *selection = [choices objectAtIndex:static_cast<NSUInteger>(index)];
}

- (NSInteger)indexOfMarkedOrDefault:(NSArray*)choices key:(const char*)key
{
    const NSInteger marked = [self indexOfMarkedOption:choices
                                                forKey:[NSString stringWithUTF8String:key]];
    return marked == ppd::kNoIndex ? [self indexOfDefaultOption:choices] : marked;
}

- (void)updateUIItem:(int32_t)itemType
{
    [self saveSetting_Length];
    [self initializeUI_Width];

    if (itemType & pagesettings::kQualityItem)
        [self show:mQuality_Selection of:mQuality_Choices inMatrix:mPrintQualityRdBtn];
    if (itemType & pagesettings::kResolutionItem)
        [self show:mResolution_Selection of:mResolution_Choices inMatrix:mResolutionRdBtn];
    if (itemType & pagesettings::kCompressItem)
        [self show:mCompress_Selection of:mCompress_Choices inMatrix:mCompressRdBtn];
    if (itemType & pagesettings::kPrintModeItem) {
        const NSInteger index = [self indexOf:mVnResolution_Selection in:mVnResolution_Choices];
        if (ppd::isInList(index, static_cast<std::size_t>([mVnResolutionPUBtn numberOfItems])) &&
            [mVnResolutionPUBtn indexOfSelectedItem] != index)
            [mVnResolutionPUBtn selectItemAtIndex:index];
    }
    [self enabledCheck_BS];
}

- (void)show:(PDEChoice*)selection of:(NSArray*)choices inMatrix:(NSMatrix*)matrix
{
    const NSInteger index = [self indexOf:selection in:choices];
    if (ppd::isInList(index, static_cast<std::size_t>([matrix numberOfRows])) &&
        [matrix selectedRow] != index)
        [matrix selectCellAtRow:index column:0];
}

// The very entry, not an equal one.
- (NSInteger)indexOf:(PDEChoice*)selection in:(NSArray*)choices
{
    if (!choices)
        return ppd::kNoIndex;
    const NSUInteger index = [choices indexOfObjectIdenticalTo:selection];
    return index == NSNotFound ? ppd::kNoIndex : static_cast<NSInteger>(index);
}

@end
