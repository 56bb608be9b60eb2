#include "Screens.hpp"

#include <ui/ui.hpp>

#include <xui_host.hpp>

#include <osal/resource.hpp>

namespace demo {

bool renderLabelShowcase(const std::string& path) {
    using ui::utils::Origin;
    _XuiWindow* screen = ui::Xui::CreateCanvas(ui::Xui::RootCanvas(), 0, 0, 320, 216);
    ui::Xui::CanvasSetBackground(screen, XUI_BG_NORMAL, nullptr,
                                 ui::fonts::intToXuiColor(resource::ResourceMapping::getResourceColor(
                                     resource::BRAND_MAIN_BACKGROUND)));
    ui::Xui::ShowWindow(screen, 1, 0);

    auto make = [&](unsigned y, unsigned h, const std::string& text, Origin alignment) {
        ui::Label label(10, y, 300, h);
        label.setText(text);
        label.setHeight(h);
        label.setAlignment(alignment);
        label.draw(screen);
    };
    make(4, 20, "Left aligned", ui::utils::Left);
    make(26, 20, "Centred", ui::utils::Centre);
    make(48, 20, "Right aligned", ui::utils::Right);
    make(74, 60, "A longer message wraps on spaces across as many lines as it needs", ui::utils::Centre);
    make(140, 70, "Reference: ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789ABCDEFGHIJ", ui::utils::Left);

    xui_host::Pixels shot = xui_host::screen();
    ui::Xui::DestroyWindow(screen);
    return xui_host::savePng(shot, path);
}

} // namespace demo
