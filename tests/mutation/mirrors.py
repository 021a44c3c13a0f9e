"""The tests of a shell that do not bear its name."""

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
