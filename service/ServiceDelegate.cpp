#include "service/ServiceDelegate.h"

#include "service/ApplicationSources.h"
#include "service/Corvel_Indexing.h"
#include "service/IndexingInterface.h"

#include <memory>
#include <utility>

bool ServiceDelegate::listener_shouldAcceptNewConnection(NSXPCListener& /*listener*/,
                                                         NSXPCConnection& connection)
{
    IndexingEnvironment environment;
    environment.sources = applicationSources();
    connection.setExportedInterface(indexingInterface());
    connection.setExportedObject(std::make_shared<Corvel_Indexing>(std::move(environment)));
    connection.resume();
    return true;
}
