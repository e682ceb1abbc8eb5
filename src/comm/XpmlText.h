// The texts of XPML, the language of requests to the port monitor and of queries in a job.
//
// Requests are put together as text; an answer is fields parted by ";". Names and values go in as
// they are, so they must hold no single quote.
#pragma once

#include <cstdint>

#include "core/OString.h"

namespace ostvt {

// Requests. Behind each stands the separator that the answer has in its place.
inline constexpr char kXpmlSharing[] = "<state name='Configuration Sharing' action='get' />;";
inline constexpr char kXpmlMonitoring[] = "<state name='Monitoring Supported' action='get' />;";
inline constexpr char kXpmlBidirectional[] = "<port action='get' name='bidirectional' />;";
inline constexpr char kXpmlPortType[] = "<port action='get' name='type' />";
inline constexpr char kXpmlMonitorVersion[] = "<state name='Monitor Version' action='get' />;";
inline constexpr char kXpmlMonitorVersionToo[] = "<state action='get' name='Monitor Version'/>;";
inline constexpr char kXpmlSystem[] = "<state name='OS' action='get' />&#0;";
inline constexpr char kXpmlSystemToo[] = "<state action='get' name='OS'/>&#0;";
inline constexpr char kXpmlNetworkRestart[] = "<network action='restart'/>";

// Brackets of requests.
inline constexpr char kXpmlSettingsRequest[] = "<settings action='request'>";
inline constexpr char kXpmlSettingsUpdate[] = "<settings action='update'>";
inline constexpr char kXpmlSettingsEnd[] = "</settings>";
inline constexpr char kXpmlPackAnswer[] = "<encode out='lz77'>";
inline constexpr char kXpmlPackedBody[] = "<encode in='base64;lz77'>";
inline constexpr char kXpmlEncodeEnd[] = "</encode>";

// In a job: what the monitor takes for itself.
inline constexpr char kXpmlBegin[] = "<xpml>";
inline constexpr char kXpmlEnd[] = "</xpml>";
inline constexpr char kXpmlQueryEnd[] = "</query>";
inline constexpr char kXpmlQueriesEnd[] = "<end/>";

// What opens a query in a job. `size` is the exact number of bytes of the printer's answer, or with
// a minus in front an estimate. A name is cut at 255 bytes on its way, so that nobody could ask for
// the answer to a longer one.
OString XpmlQuery(const OString& name, int32_t size);
// Asks for the printer's answer to the query of that name.
OString XpmlQueryResponse(const OString& name);

}  // namespace ostvt
