#include "Toolkit/MRL_AttachmentContainerI.h"

MRL_AttachmentContainerI::~MRL_AttachmentContainerI() noexcept(false) = default;
