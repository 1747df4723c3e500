// The kinds of controls. Each is a table of members over a system window or a window that paints itself.
#pragma once

#include "support/forms/control.h"

namespace vorla::forms {

class Label final : public Control {
public:
    Label(Form& form, const Design& design);

private:
    const Members& members() const override;
    bool autoSize() const { return autoSize_; }
    void setAutoSize(bool autoSize);
    void textOrFontChanged() override;

    bool autoSize_ = false;
};

class TextBox final : public Control {
public:
    TextBox(Form& form, const Design& design);

private:
    const Members& members() const override;
};

class CommandButton final : public Control {
public:
    CommandButton(Form& form, const Design& design);

private:
    const Members& members() const override;
};

/// `Value` is 0, 1 or 2 (grayed).
class CheckBox final : public Control {
public:
    CheckBox(Form& form, const Design& design);

private:
    const Members& members() const override;
    std::int16_t value() const;
    void setValue(std::int16_t value);
};

/// At most one of the option buttons in a container is chosen.
class OptionButton final : public Control {
public:
    OptionButton(Form& form, const Design& design);

private:
    const Members& members() const override;
    bool value() const;
    void setValue(bool value);
};

/// A list with the lines `List(0)`, `List(1)`, …, and with `AddItem`, `Clear`, `ListCount` and `ListIndex`,
/// which is -1 when no line is chosen.
class List : public Control {
protected:
    /// The messages of one kind of list.
    struct Messages {
        UINT add, clear, count, choice, choose, textLength, text, remove, insert;
    };

    List(Form& form, const Design& design, const wchar_t* typeName, const Look& look,
         const Messages& messages)
        : Control(form, design, typeName, look), messages_(messages) {}

    static Members table();

    LRESULT send(UINT message, WPARAM first = 0, LPARAM second = 0) const {
        return SendMessageW(living(), message, first, second);
    }
    std::int16_t listIndex() const;
    void setListIndex(std::int16_t index);
    Text line(std::int32_t index) const;
    /// The line with exactly this text; -1 without one.
    std::int16_t find(const Text& text) const;

private:
    std::int16_t listCount() const;
    void setLine(std::int32_t index, const Text& text);
    Variant addItem(const HostCall& call);
    Variant clear(const HostCall& call);

    const Messages messages_;
};

class ListBox final : public List {
public:
    ListBox(Form& form, const Design& design);

private:
    const Members& members() const override;
    Text chosenText() const;
    void chooseText(const Text& text);
};

/// A list with a field to type in.
class ComboBox : public List {
public:
    ComboBox(Form& form, const Design& design);

protected:
    ComboBox(Form& form, const Design& design, DWORD style);
    const Members& members() const override;
    int windowHeight(int pixels) const override;
};

/// A list without such a field: its text must be one of its lines. Any other text is error 383.
class DropDownList final : public ComboBox {
public:
    DropDownList(Form& form, const Design& design);

private:
    const Members& members() const override;
    void chooseText(const Text& text);
};

/// It has no scale of its own, so controls in it are measured in twips.
class Frame final : public Control {
public:
    Frame(Form& form, const Design& design);

private:
    const Members& members() const override;
    void paint(HDC on) override;
};

class PictureBox final : public Control {
public:
    PictureBox(Form& form, const Design& design);

private:
    const Members& members() const override;
    bool hasScale() const override { return true; }
};

}  // namespace vorla::forms
