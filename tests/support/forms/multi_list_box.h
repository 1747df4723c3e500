// A list box in which any number of lines can be selected, and which counts its lines in 32 bits.
#pragma once

#include "support/forms/controls.h"

namespace vorla::forms {

/// Beside the members of every list: `ItemData`, `Selected` and `SelCount`.
class MultiListBox final : public List {
public:
    MultiListBox(Form& form, const Design& design);

    /// Adds lines without painting the list for each.
    void fill(std::int32_t count, const std::function<Text(std::int32_t)>& lineAt);

private:
    const Members& members() const override;
    std::int32_t count() const { return static_cast<std::int32_t>(send(LB_GETCOUNT)); }
    std::int32_t selectedCount() const { return static_cast<std::int32_t>(send(LB_GETSELCOUNT)); }
    Text line(std::int32_t index) const;
    void setLine(std::int32_t index, const Text& text);
    std::int32_t itemData(std::int32_t index) const;
    void setItemData(std::int32_t index, std::int32_t data);
    bool selected(std::int32_t index) const;
    void setSelected(std::int32_t index, bool selected);

    WPARAM checked(std::int32_t index) const;
};

}  // namespace vorla::forms
