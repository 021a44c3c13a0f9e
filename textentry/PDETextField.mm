#include "textentry/PDETextField.h"

namespace {

// The fields that are inside one of the toolkit's own methods, innermost first.  A toolkit that
// sets up, or takes up again, a field's editor does so by sending the field selectText: with the
// field itself as sender.  Such a call must reach the toolkit, or the focused field takes no keys.
class InsideToolkit
{
  public:
    explicit InsideToolkit(PDETextField13_v100_* field) : field_(field), outer_(innermost_)
    {
        innermost_ = this;
    }
    ~InsideToolkit() { innermost_ = outer_; }
    InsideToolkit(const InsideToolkit&) = delete;
    InsideToolkit& operator=(const InsideToolkit&) = delete;

    static bool holds(PDETextField13_v100_* field)
    {
        for (const InsideToolkit* inside = innermost_; inside != nullptr; inside = inside->outer_) {
            if (inside->field_ == field)
                return true;
        }
        return false;
    }

  private:
    static inline InsideToolkit* innermost_ = nullptr;
    PDETextField13_v100_* field_;
    InsideToolkit* outer_;
};

} // namespace

@implementation PDETextField13_v100_

- (void)sendFirstResponderNotification:(BOOL)flag
{
    if (flag)
        return;
    [[NSNotificationCenter defaultCenter]
        postNotificationName:@"TextFieldResignFirstResponderNotification"
                      object:self];
}

- (void)textDidEndEditing:(NSNotification*)notification
{
    {
        const InsideToolkit inside(self);
        [super textDidEndEditing:notification];
    }
    // An exception from here passes through to the caller as it is.
    if ([super resignFirstResponder])
        [self sendFirstResponderNotification:YES];
}

- (void)selectText:(id)sender
{
    if (sender == self && InsideToolkit::holds(self)) {
        [super selectText:sender];
        return;
    }
    // After Tab the window sends this to the field that it has just given the focus and whose text
    // is selected already: a part of gaining the focus, not an edit.
    if ([self currentEditor] != nil && sender == [self window])
        return;
    [self sendFirstResponderNotification:NO];
}

- (void)textDidChange:(NSNotification*)notification
{
    [self sendFirstResponderNotification:NO];
}

- (BOOL)becomeFirstResponder
{
    const InsideToolkit inside(self);
    const BOOL result = [super becomeFirstResponder];
    if (result)
        [self sendFirstResponderNotification:YES];
    return result;
}

@end
