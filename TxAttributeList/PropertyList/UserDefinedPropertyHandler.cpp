#include "TxAttributeList/UserDefinedPropertyHandler.hpp"

namespace TxAL {

void DecorateEachUserDefinedPropertyHandler (
    Kor::Array<Kor::Ref<IUserDefinedPropertyHandler>>&                                                    handlers,
    const std::function<Kor::Ref<IUserDefinedPropertyHandler> (Kor::Ref<IUserDefinedPropertyHandler>)>& decorate)
{
    for (Kor::Ref<IUserDefinedPropertyHandler>& handler : handlers) {
        Kor::Ref<IUserDefinedPropertyHandler> decorated = decorate (handler);
        if (!(decorated == handler)) handler = decorated;
    }
}

}   // namespace TxAL
