#include "../ViewsFixture.h"

#include <cstdlib>

// Shows the control on the sample host for a while, to be looked at and driven by hand:
//   views_demo SECONDS [DPI [CLASS-TYPE [WIDTH HEIGHT]]]
int main(int count, char** arguments) {
    const auto number = [&](int position, int usual) {
        return count > position ? std::atoi(arguments[position]) : usual;
    };
    orv::windows::testing::Stage stage(number(2, 96), number(4, 800), number(5, 560));
    stage.openClassType(number(3, 1000101));
    stage.window->takeFocus(false);
    orv::windows::testing::pumpFor(stage, number(1, 10) * 1000);
    return 0;
}
