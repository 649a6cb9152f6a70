#include "service/ServiceDelegate.h"

#include "service/Corvel_Indexing.h"
#include "service/IndexingInterface.h"

#include <memory>

bool ServiceDelegate::listener_shouldAcceptNewConnection(NSXPCListener& /*listener*/,
                                                         NSXPCConnection& connection)
{
    connection.setExportedInterface(indexingInterface());
    connection.setExportedObject(std::make_shared<Corvel_Indexing>());
    connection.resume();
    return true;
}
