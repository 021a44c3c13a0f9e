"""Tests that do not bear the name of what they test."""

# The tests of a shell.
MIRRORS = {
    "pagesettings/PageSettingPDE.mm": "PanelCore_test",
    "pagesettings/PageSettingPDE+initialize.mm": "Initialize_test",
    "pagesettings/PageSettingPDE+Save.mm": "Save_test",
    "pagesettings/PageSettingPDE+IBAction.mm": "IBAction_test",
    "pagesettings/PageSettingPDE+PPDChanges.mm": "PPDChanges_test",
    "pagesettings/PageSettingPDE+Summary.mm": "Summary_test",
    "pagesettings/PDEChoiceMatrix.mm": "ChoiceMatrix_test",
    "plugin/HostCall.mm": "Faults_test",
    "ppd/PPDText.mm": "PDEUtilsMethod13_test",
    "diagnostics/MessageOutput.mm": "DebugLog_test",
    "textentry/PDEFormatter.mm": "Formatter_test",
    "textentry/PDETextField.mm": "TextField_test",
}

# What other tests test.
TESTED = {
    "DecimalComma_test": ("pagesettings/PageSettingPDE+initialize.mm",
                          "pagesettings/PageSettingPDE+Save.mm",
                          "pagesettings/PageSettingPDE+Summary.mm"),
    "DialogLayout_test": ("dialog/Layout.cpp",),
    "Features_test": ("dialog/ppd/PPDFile.cpp",),
    "KeystrokeSweep_test": ("textentry/KeystrokeRules.cpp",),
    "Language_test": ("dialog/language/Language.cpp",),
    "Lifetimes_test": ("plugin/PlugIn.mm", "plugin/BasePDE.mm", "pagesettings/PageSettingPDE.mm"),
    "Locale_test": ("platform/CoreFoundation.mm",),
    "NumberLocale_test": ("textentry/PDEFormatter.mm",),
    "PanelTwin_test": ("dialog/twin/PanelSettings.cpp",),
    "PrintServer_test": ("dialog/printers/PrintServer.cpp",),
    "Resolving_test": ("dialog/features/ConflictText.cpp",),
    "SavingSweep_test": ("pagesettings/Saving.cpp", "pagesettings/PageSettingPDE+Save.mm"),
    "SummarySweep_test": ("pagesettings/SummaryLines.cpp",),
    "TollFree_test": ("platform/CoreFoundation.mm",),
    "ValidationSweep_test": ("pagesettings/Validation.cpp",),
}
