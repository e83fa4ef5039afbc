#include "TavelTK/TavelTK.h"

#include "TavelTK/detail/Failure.h"
#include "TavelTK/detail/HttpTavelTK.h"

TavelTK::~TavelTK() = default;

TavelTKServerSocket* TavelTK::getServerSocket(char*, int, char*) {
    mrl::detail::fail(TavelTKError::unsupported, TavelTKPhase::prepare, {},
                      "getServerSocket() is not offered; this toolkit has no server side");
}

TavelTK* TavelTK::getSessionFactory() {
    using mrl::detail::HttpTavelTK;
    return hblRethrowing("TavelTK::getSessionFactory", []() -> TavelTK* {
        return hblNew<HttpTavelTK>(HBL_HERE, mrl::detail::Surroundings::real());
    });
}
