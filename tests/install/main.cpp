// Builds against the installed headers and links the installed library.
#include <ui/ui.hpp>

int main() {
    ui::Label label(0, 0, 100, 20);
    return getUserInterfaceVersion() == "1.2.1.0" && label.getWidth() == 100 ? 0 : 1;
}
