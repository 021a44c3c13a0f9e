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

# What the tests of rules test.
TESTED = {
    "DialogLayout_test": "dialog/Layout.cpp",
    "KeystrokeSweep_test": "textentry/KeystrokeRules.cpp",
    "Language_test": "dialog/language/Language.cpp",
    "NumberLocale_test": "textentry/PDEFormatter.mm",
    "PrintServer_test": "dialog/printers/PrintServer.cpp",
    "SavingSweep_test": "pagesettings/Saving.cpp",
    "SummarySweep_test": "pagesettings/SummaryLines.cpp",
    "ValidationSweep_test": "pagesettings/Validation.cpp",
}
