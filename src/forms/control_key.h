// Which control of which form. Each form declares its controls' identifiers
// as an enum of its own; a key carries the form along with the number, so one
// form's identifier cannot reach another form's controls unnoticed.
#pragma once

#include <stdexcept>
#include <type_traits>

namespace velmora {

// A form makes its enum one of control identifiers with
//   template <> inline constexpr bool kFormIdentifiers<MyId> = true;
template <class Id>
inline constexpr bool kFormIdentifiers = false;

template <class Id>
concept FormIdentifier = std::is_enum_v<Id> && kFormIdentifiers<Id>;

class ControlKey {
 public:
  // Every form's identifiers convert, as the enum's own values did before.
  template <FormIdentifier Id>
  constexpr ControlKey(Id id)
      : form_(&kFormTag<Id>), value_(static_cast<int>(id)) {}  // NOLINT(google-explicit-constructor)

  // The control numbered `value` on this key's form (a window's identifier read back).
  constexpr ControlKey Sibling(int value) const {
    ControlKey key = *this;
    key.value_ = value;
    return key;
  }
  constexpr int Value() const { return value_; }
  constexpr bool Same_Form(const ControlKey& other) const { return form_ == other.form_; }
  // The form's own identifier; asking a key of another form is a slip of the code.
  template <FormIdentifier Id>
  Id As() const {
    if (form_ != &kFormTag<Id>) throw std::logic_error("a control identifier of another form");
    return static_cast<Id>(value_);
  }
  constexpr bool operator==(const ControlKey&) const = default;

 private:
  // One address per form: what tells the forms apart.
  template <class Id>
  static constexpr char kFormTag = 0;

  const char* form_;
  int value_;
};

}  // namespace velmora
