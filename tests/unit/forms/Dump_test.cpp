#include "platform/forms/Dump.h"

#include <gtest/gtest.h>

#include "tests/unit/forms/SampleForm.h"

namespace {

std::string Narrow(const std::u16string& text) { return {text.begin(), text.end()}; }

TEST(Dump, OneLineAControlInLayoutOrderWithEntriesBelow) {
  ShownSample sample;
  sample.form.txtName.SetText(u"Buyer");
  sample.form.chkBox.SetValue(1);
  sample.form.chkBox.SetEnabled(false);
  sample.form.chkBox.SetToolTip(u"Tick it");
  sample.form.txtFixed.SetToolTip(u"Read only");
  sample.form.optKind[1].SetValue(true);
  sample.form.cmbCode.AddItem(u"first");
  sample.form.cmbCode.AddItem(u"second");
  sample.form.cmbCode.SetListIndex(1);
  sample.form.lstItems.AddItem(u"a");
  sample.form.lstItems.AddItem(u"b");
  sample.form.lstItems.SetSelected(0, true);
  sample.form.lblText.SetVisible(false);
  EXPECT_EQ(Narrow(forms::Dump(sample.form)),
            "SampleForm \"Sample\"\n"
            "Frame fraOuter\n"
            "  TextBox txtName=\"Buyer\"\n"
            "  CheckBox chkBox=1 disabled \"&Box\" tip \"Tick it\"\n"
            "  OptionButton optKind(0)=0\n"
            "  OptionButton optKind(1)=1\n"
            "TextBox txtFixed=\"\" tip \"Read only\"\n"
            "ComboBox cmbCode=1\n"
            "    first\n"
            "  * second\n"
            "ListBox lstItems=-1\n"
            "  * a\n"
            "    b\n"
            "TextBox txtNumber=\"\"\n"
            "UpDown updNumber\n"
            "TabStrip tbcPages=0\n"
            "  * First\n"
            "    Second\n"
            "Label lblText hidden\n"
            "Link lblLink\n"
            "Button cmdOK default\n"
            "Button cmdCancel cancel\n"
            "StatusBar sbrStatus=\"\"\n"
            "Menu mnuMain\n"
            "MenuItem mnuItem\n");
}

}  // namespace
