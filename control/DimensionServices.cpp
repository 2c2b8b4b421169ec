#include <algorithm>

#include "control/nuxStdParts.h"
#include "dimensions/nuxChooseStdDims.h"
#include "environment/XMLAccess.h"
#include "framework/DebugOutput.h"

namespace nux {
namespace {

/// An interface of a script's object. Raises E_INVALIDARG if the object lacks it.
/// @param argument  name of the argument that holds the object
template <class Interface>
ComPtr<Interface> TakeObject(IDispatch* object, const wchar_t* argument, const wchar_t* interfaceName) {
    ComPtr<Interface> taken = Query<Interface>(object);
    if (object && !taken)
        throw HResultError(E_INVALIDARG,
                           std::wstring(argument) + L" holds an object that is no " + interfaceName + L".");
    return taken;
}

/// The object of a script's value. A value that holds none stands for none, and so does a reference to a
/// variable.
IDispatch* ObjectOf(const VARIANT& value, const wchar_t* argument) {
    if (value.vt == VT_DISPATCH)
        return value.pdispVal;
    if (value.vt != VT_EMPTY && value.vt != VT_NULL)
        TellDebugger(std::wstring(L"ChooseDimensions: ") + argument + L" is of type " +
                     std::to_wstring(value.vt) + L" and not VT_DISPATCH. It stands for none.");
    return nullptr;
}

/// The name of a registry key, which can't be empty. An ID ends at its first NUL: a key's path would end
/// there, and the component with it that the settings are for.
std::string NameOrDefault(BSTR id) {
    std::string name = Narrow(id);
    name.resize(std::min(name.size(), name.find('\0')));
    return name.empty() ? "Default" : name;
}

}  // namespace

STDMETHODIMP nuxStdParts::ChooseDimensions(BSTR CatalogID, BSTR ComponentID, IDispatch* NamesDisp,
                                           VARIANT DefaultValuesVar, VARIANT StdDimensionVar,
                                           VARIANT UsrDimensionVar, IDispatch** ChosenDimensions) {
    return Operation([&] {
        Require(NamesDisp, L"NamesDisp");
        const auto names = TakeObject<IXMLDOMNodeList>(NamesDisp, L"NamesDisp", L"IXMLDOMNodeList");
        const auto defaults = TakeObject<IXMLDOMNode>(ObjectOf(DefaultValuesVar, L"DefaultValuesVar"),
                                                      L"DefaultValuesVar", L"IXMLDOMNode");
        const auto stdRows = TakeObject<IXMLDOMNodeList>(ObjectOf(StdDimensionVar, L"StdDimensionVar"),
                                                         L"StdDimensionVar", L"IXMLDOMNodeList");
        const auto usrRows = TakeObject<IXMLDOMNodeList>(ObjectOf(UsrDimensionVar, L"UsrDimensionVar"),
                                                         L"UsrDimensionVar", L"IXMLDOMNodeList");
        nuxChooseStdDims dialog(NameOrDefault(CatalogID), NameOrDefault(ComponentID), names.Get(),
                                defaults.Get(), stdRows.Get(), usrRows.Get());
        if (dialog.Run(GetActiveWindow()) == IDOK && ChosenDimensions)
            dialog.ChosenRow().CopyTo(ChosenDimensions);
    });
}

}  // namespace nux
