#include <algorithm>

#include "control/nuxStdParts.h"
#include "dimensions/nuxChooseStdDims.h"
#include "environment/XMLAccess.h"

namespace nux {
namespace {

/// Takes an interface from a script's value. A value that holds no object stands for none.
/// @return false if it holds an object without this interface
template <class Interface>
bool TakeObject(const VARIANT& value, ComPtr<Interface>& object) noexcept {
    IDispatch* given = value.vt == VT_DISPATCH ? value.pdispVal : nullptr;
    object = Query<Interface>(given);
    return !given || object;
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
    if (!NamesDisp)
        return E_INVALIDARG;
    const ComPtr<IXMLDOMNodeList> names = Query<IXMLDOMNodeList>(NamesDisp);
    ComPtr<IXMLDOMNode> defaults;
    ComPtr<IXMLDOMNodeList> stdRows;
    ComPtr<IXMLDOMNodeList> usrRows;
    if (!names || !TakeObject(DefaultValuesVar, defaults) || !TakeObject(StdDimensionVar, stdRows) ||
        !TakeObject(UsrDimensionVar, usrRows))
        return E_INVALIDARG;
    const ComPtr<InuxStdParts> self(this);  // a script may let go of the object while the dialog is open
    return Guarded([&] {
        nuxChooseStdDims dialog(NameOrDefault(CatalogID), NameOrDefault(ComponentID), names.Get(),
                                defaults.Get(), stdRows.Get(), usrRows.Get());
        if (dialog.Run(GetActiveWindow()) == IDOK && ChosenDimensions)
            dialog.ChosenRow().CopyTo(ChosenDimensions);
        return S_OK;
    });
}

}  // namespace nux
