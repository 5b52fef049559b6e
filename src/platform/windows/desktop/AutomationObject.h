// Another program's objects, driven by the names of their members (late-bound IDispatch). A step that fails gives an
// empty result, and every step on an empty object fails. The component object model must be up on this thread.
#pragma once

#include <QString>
#include <memory>
#include <oaidl.h>
#include <optional>
#include <vector>

class AutomationObject;

/// One value of theirs; owns it.
class Variant final {
  public:
    Variant() { VariantInit(&m_value); }
    explicit Variant(long number);
    explicit Variant(const QString& text);
    ~Variant() { VariantClear(&m_value); }
    Variant(const Variant& other);
    Variant& operator=(const Variant&) = delete;

    [[nodiscard]] AutomationObject Object() const;
    [[nodiscard]] std::optional<long> Number() const;
    [[nodiscard]] std::optional<QString> Text() const;

    [[nodiscard]] VARIANT* Raw() { return &m_value; }
    [[nodiscard]] const VARIANT& Raw() const { return m_value; }

  private:
    VARIANT m_value;
};

class AutomationObject final {
  public:
    AutomationObject() = default;
    /// The program of this name, "Outlook.Application"; empty where it is not installed.
    [[nodiscard]] static AutomationObject Create(const wchar_t* program);
    /// Shares the object with its other holders.
    [[nodiscard]] static AutomationObject Of(IDispatch* object);

    explicit operator bool() const { return m_object != nullptr; }

    [[nodiscard]] Variant Get(const wchar_t* name) const;
    void Set(const wchar_t* name, const Variant& value) const;
    [[nodiscard]] Variant Call(const wchar_t* name, const std::vector<Variant>& arguments) const;

  private:
    [[nodiscard]] Variant invoke(const wchar_t* name, WORD kind, const std::vector<Variant>& arguments) const;

    struct Release {
        void operator()(IDispatch* object) const { object->Release(); }
    };
    std::unique_ptr<IDispatch, Release> m_object;
};
