#include "core/Screens.h"

#include "core/MainWindow.h"
#include "standards/ConvertScreen.h"

namespace kvlr {

void InstallScreens(MainWindow& window, AppState& state) {
  using C = MenuCommand;
  window.SetHandler(C::kCourseConversion, [&window, &state] {
    frmConvt screen(state, &window);
    screen.exec();
  });
}

}  // namespace kvlr
