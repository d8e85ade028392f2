// Which handler answers which event: one line each.
#include <string_view>

#include "window/form1.h"

namespace plimo {

namespace {

struct Connection {
  Form1::Wire names;
  void (*connect)(Form1& form);
};

// The status line is about the last command: the next one clears it. Moving, pointing and scrolling are no commands.
void clearStatus(Form1& form, const Control& control, std::string_view event) {
  const bool command = event == "click" ? control.kind() != ControlKind::listBox
                                        : event == "tick" || event == "keyPress" || event == "doubleClick";
  if (command) form.setStatus({});
}

#define WIRE_IF(condition, control, event, handler)     \
  Connection {                                          \
    {#control "." #event, #handler}, [](Form1& form) {  \
      form.control.event = [&form](auto... arguments) { \
        if (!(condition)) return;                       \
        clearStatus(form, form.control, #event);        \
        form.handler(arguments...);                     \
      };                                                \
    }                                                   \
  }
#define WIRE(control, event, handler) WIRE_IF(true, control, event, handler)
// For the three lists and their pop-up menus: in the colour editor the lists show samples, and nothing acts on them.
#define WIRE_LIST(control, event, handler) WIRE_IF(!form.fromsettings, control, event, handler)
#define WIRE_FORM(event, handler)                                                              \
  Connection {                                                                                 \
    {"Form1." #event, #handler}, [](Form1& form) { form.event = [&form] { form.handler(); }; } \
  }

const Connection connections[] = {
    // The window itself
    WIRE_FORM(load, Form_Load),
    WIRE_FORM(resize, Form_Resize),
    WIRE_FORM(mouseMove, Form_MouseMove),
    WIRE_FORM(terminate, Form_Terminate),
    // Lists
    WIRE(List2, tick, List2_ItemCheck),
    WIRE_LIST(List2, rightDown, List2_MouseDown),
    WIRE(List2, scroll, List2_Scroll),
    WIRE_LIST(List1, keyPress, List1_KeyPress),
    WIRE_LIST(List1, doubleClick, List1_DblClick),
    WIRE_LIST(List1, rightDown, List1_MouseDown),
    WIRE(List1, scroll, List1_Scroll),
    WIRE(List4, click, List4_Click),
    WIRE_LIST(List4, doubleClick, List4_DblClick),
    WIRE_LIST(List4, keyPress, List4_KeyPress),
    WIRE_LIST(List4, rightDown, List4_MouseDown),
    WIRE(List6, click, List6_Click),
    WIRE_LIST(List6, doubleClick, List6_DblClick),
    WIRE_LIST(List6, keyPress, List6_KeyPress),
    WIRE_LIST(List6, rightDown, List6_MouseDown),
    WIRE(List5, click, List5_Click),
    WIRE(List5, doubleClick, List5_DblClick),
    WIRE(List5, tick, List5_ItemCheck),
    // Strips
    WIRE(Picture1, click, Picture1_Click),
    WIRE(Picture2, click, Picture2_Click),
    WIRE(Picture3, click, Picture3_Click),
    WIRE(Picture4, click, Picture4_Click),
    WIRE(Picture5, click, Picture5_Click),
    WIRE(Picture6, click, Picture6_Click),
    WIRE(Picture7, click, Picture7_Click),
    WIRE(Command1, click, Command1_Click),
    WIRE(Command2, click, Command2_Click),
    WIRE(Command3, click, Command3_Click),
    WIRE(Command4, click, Command4_Click),
    WIRE(Command8, click, Command8_Click),
    WIRE(Command9, click, Command9_Click),
    WIRE(Command10, click, Command10_Click),
    WIRE(Command11, click, Command11_Click),
    WIRE(Command12, click, Command12_Click),
    WIRE(Command13, click, Command13_Click),
    WIRE(Command14, click, Command14_Click),
    WIRE(Command15, click, Command15_Click),
    WIRE(Command1, mouseMove, Command1_MouseMove),
    WIRE(Command2, mouseMove, Command2_MouseMove),
    WIRE(Command3, mouseMove, Command3_MouseMove),
    WIRE(Command4, mouseMove, Command4_MouseMove),
    WIRE(Command8, mouseMove, Command8_MouseMove),
    WIRE(Command9, mouseMove, Command9_MouseMove),
    WIRE(Command10, mouseMove, Command10_MouseMove),
    WIRE(Command11, mouseMove, Command11_MouseMove),
    WIRE(Command12, mouseMove, Command12_MouseMove),
    WIRE(Command13, mouseMove, Command13_MouseMove),
    WIRE(Command14, mouseMove, Command14_MouseMove),
    WIRE(Command15, mouseMove, Command15_MouseMove),
    // Player
    WIRE(MediaPlayer1, newStream, MediaPlayer1_NewStream),
    WIRE(Timer1, timer, Timer1_Timer),
    // Panels
    WIRE(Option4, click, Option4_Click),
    WIRE(Check3, click, Check3_Click),
    WIRE(Drive1, change, Drive1_Change),
    WIRE(Drive2, change, Drive2_Change),
    WIRE(Dir2, change, Dir2_Change),
    WIRE(Command5, click, Command5_Click),
    WIRE(Command16, click, Command16_Click),
    WIRE(Command6, click, Command6_Click),
    WIRE(Command7, click, Command7_Click),
    WIRE(Command17, click, Command17_Click),
    WIRE(Command18, click, Command18_Click),
    WIRE(Command00, click, Command00_Click),
    WIRE(Command19, click, Command19_Click),
    WIRE(credit, click, credit_Click),
    WIRE(accept, click, accept_Click),
    WIRE(cancel, click, cancel_Click),
    WIRE(Slider1, change, Slider1_Change),
    WIRE(Slider1, scroll, Slider1_Scroll),
    WIRE(Slider1, click, Slider1_Click),
    WIRE(Slider1, keyUp, Slider1_KeyUp),
    WIRE(Slider2, change, Slider2_Change),
    WIRE(Slider2, scroll, Slider2_Scroll),
    WIRE(Slider2, click, Slider2_Click),
    WIRE(Slider2, keyUp, Slider2_KeyUp),
    WIRE(Slider3, change, Slider3_Change),
    WIRE(Slider3, scroll, Slider3_Scroll),
    WIRE(Slider3, click, Slider3_Click),
    WIRE(Slider3, keyUp, Slider3_KeyUp),
    // Menus
    WIRE(open, click, open_Click),
    WIRE(save, click, save_Click),
    WIRE(Scan, click, Scan_Click),
    WIRE(sodf, click, sodf_Click),
    WIRE(Hotkeys, click, Hotkeys_Click),
    WIRE(Exit, click, Exit_Click),
    WIRE(large, click, large_Click),
    WIRE(Compact, click, Compact_Click),
    WIRE(Preferences, click, Preferences_Click),
    WIRE(plimo, click, plimo_Click),
    WIRE(credits, click, credits_Click),
    WIRE_LIST(openyh, click, openyh_Click),
    WIRE_LIST(pal, click, pal_Click),
    WIRE_LIST(playall, click, playall_Click),
    WIRE_LIST(save2, click, save2_Click),
    WIRE_LIST(Shuffle, click, Shuffle_Click),
    WIRE_LIST(sort, click, sort_Click),
    WIRE_LIST(remove, click, remove_Click),
    WIRE_LIST(ral, click, ral_Click),
    WIRE_LIST(play, click, play_Click),
    WIRE_LIST(atp, click, atp_Click),
    WIRE_LIST(ada, click, ada_Click),
    WIRE_LIST(rfl, click, rfl_Click),
    WIRE_LIST(ra, click, ra_Click),
    WIRE_LIST(dal, click, dal_Click),
    WIRE_LIST(cop, click, cop_Click),
    WIRE_LIST(ds, click, ds_Click),
    WIRE_LIST(info, click, info_Click),
    WIRE_LIST(rename, click, rename_Click),
    WIRE_LIST(sel, click, sel_Click),
    WIRE_LIST(des, click, des_Click),
};

#undef WIRE
#undef WIRE_LIST
#undef WIRE_IF
#undef WIRE_FORM

}  // namespace

std::vector<Form1::Wire> Form1::wires() {
  std::vector<Wire> names;
  for (const Connection& connection : connections) names.push_back(connection.names);
  return names;
}

void Form1::wire() {
  for (const Connection& connection : connections) connection.connect(*this);
  platform.player.newStream = [this] { MediaPlayer1.playerNewStream(); };
}

}  // namespace plimo
