#include "dialogs/modManageFrames.h"

#include "platform/forms/Form.h"

void ManageFrames(const forms::TabStrip& tabs, TabFrames& frames) {
  for (forms::Frame& frame : frames) frame.SetVisible(frame.Index() == tabs.SelectedTab());
  tabs.Owner().Repaint();
}
