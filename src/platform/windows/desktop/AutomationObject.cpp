#include "AutomationObject.h"

#include <objbase.h>
#include <string>

Variant::Variant(long number) : Variant() {
    m_value.vt = VT_I4;
    m_value.lVal = number;
}

Variant::Variant(const QString& text) : Variant() {
    const std::wstring wide = text.toStdWString();
    m_value.vt = VT_BSTR;
    m_value.bstrVal = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
}

Variant::Variant(const Variant& other) : Variant() {
    VariantCopy(&m_value, const_cast<VARIANT*>(&other.m_value)); // only read
}

AutomationObject Variant::Object() const {
    return m_value.vt == VT_DISPATCH ? AutomationObject::Of(m_value.pdispVal) : AutomationObject();
}

std::optional<long> Variant::Number() const {
    Variant number;
    return SUCCEEDED(VariantChangeType(number.Raw(), const_cast<VARIANT*>(&m_value), 0, VT_I4)) &&
                   m_value.vt != VT_EMPTY
               ? std::optional(number.m_value.lVal)
               : std::nullopt;
}

std::optional<QString> Variant::Text() const {
    if (m_value.vt != VT_BSTR)
        return std::nullopt;
    return QString::fromWCharArray(m_value.bstrVal, static_cast<qsizetype>(SysStringLen(m_value.bstrVal)));
}

AutomationObject AutomationObject::Create(const wchar_t* program) {
    CLSID id{};
    IDispatch* object = nullptr;
    AutomationObject made;
    if (SUCCEEDED(CLSIDFromProgID(program, &id)) &&
        SUCCEEDED(CoCreateInstance(id, nullptr, CLSCTX_SERVER, IID_PPV_ARGS(&object))))
        made.m_object.reset(object);
    return made;
}

AutomationObject AutomationObject::Of(IDispatch* object) {
    AutomationObject shared;
    if (object != nullptr)
        object->AddRef();
    shared.m_object.reset(object);
    return shared;
}

Variant AutomationObject::Get(const wchar_t* name) const {
    return invoke(name, DISPATCH_PROPERTYGET, {});
}

void AutomationObject::Set(const wchar_t* name, const Variant& value) const {
    std::ignore = invoke(name, DISPATCH_PROPERTYPUT, {value});
}

Variant AutomationObject::Call(const wchar_t* name, const std::vector<Variant>& arguments) const {
    return invoke(name, DISPATCH_METHOD | DISPATCH_PROPERTYGET, arguments);
}

Variant AutomationObject::invoke(const wchar_t* name, WORD kind, const std::vector<Variant>& arguments) const {
    Variant result;
    DISPID id = 0;
    std::wstring member(name);
    LPOLESTR memberName = member.data();
    if (!m_object || FAILED(m_object->GetIDsOfNames(IID_NULL, &memberName, 1, LOCALE_USER_DEFAULT, &id)))
        return result;
    std::vector<VARIANT> reversed; // borrowed from `arguments`; the last one comes first
    for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument)
        reversed.push_back(argument->Raw());
    DISPID put = DISPID_PROPERTYPUT;
    const bool sets = kind == DISPATCH_PROPERTYPUT;
    DISPPARAMS parameters{reversed.data(), sets ? &put : nullptr, static_cast<UINT>(reversed.size()), sets ? 1U : 0U};
    if (FAILED(m_object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, sets ? nullptr : result.Raw(),
                                nullptr, nullptr)))
        return Variant();
    return result;
}
