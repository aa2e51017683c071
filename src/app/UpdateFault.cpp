#include "app/UpdateFault.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace pirol {
namespace {

struct FaultRow {
    UpdateFault fault;
    const char* message; // an exception's text needs its end
};

constexpr FaultRow faults[] = {
    {UpdateFault::NoSource, noUpdateSource},
    {UpdateFault::NoConnection, "Der Server ist nicht erreichbar. Prüfen Sie die Verbindung zum Internet, oder "
                                "versuchen Sie es später noch einmal."},
    {UpdateFault::NameNotFound, "Der Name des Servers ist nicht bekannt. Prüfen Sie die Verbindung zum Internet."},
    {UpdateFault::ProxyWantsPassword, "Der Proxy Ihres Netzes verlangt ein Kennwort, das Pirol nicht hat. Wenden Sie "
                                      "sich an den, der das Netz betreut."},
    {UpdateFault::UntrustedServer, "Der Server weist sich nicht richtig aus; deshalb wurde nichts geladen. Prüfen Sie "
                                   "Datum und Uhrzeit des Rechners. "
                                   "Stimmen sie, wenden Sie sich an den, der das Netz betreut."},
    {UpdateFault::ConnectionLost,
     "Die Verbindung ist abgerissen. Was schon geladen ist, bleibt; machen Sie später dort weiter."},
    {UpdateFault::TimedOut, "Der Server antwortet nicht mehr. Was schon geladen ist, bleibt; machen Sie später dort "
                            "weiter."},
    {UpdateFault::Redirected,
     "Der Server verweist auf eine andere Adresse, der Pirol nicht folgt. Vielleicht verlangt Ihr Netz erst eine "
     "Anmeldung im Browser."},
    {UpdateFault::WebPage, "Statt der Datei kam eine Webseite. Vielleicht verlangt Ihr Netz erst eine Anmeldung im "
                           "Browser."},
    {UpdateFault::NotOnServer, "Die Datei liegt nicht auf dem Server. Versuchen Sie es später noch einmal."},
    {UpdateFault::ServerBusy, "Der Server kann gerade nicht antworten. Versuchen Sie es später noch einmal."},
    {UpdateFault::BadAnswer, "Der Server antwortet anders, als er soll. Versuchen Sie es später noch einmal."},
    {UpdateFault::ListTooLong, "Die Versionsliste ist viel zu lang und wurde nicht gelesen. Versuchen Sie es später "
                               "noch einmal."},
    {UpdateFault::ListUnreadable, "Auf dem Server liegt keine Versionsliste von Pirol. Versuchen Sie es später noch "
                                  "einmal."},
    {UpdateFault::ListNotSigned, "Die Unterschrift der Versionsliste ist falsch; deshalb gilt die Liste nicht. "
                                 "Versuchen Sie es später oder in einem anderen Netz noch einmal."},
    {UpdateFault::ListExpired, "Die Versionsliste ist abgelaufen. Prüfen Sie das Datum des Rechners. Stimmt es, "
                               "versuchen Sie es später noch einmal."},
    {UpdateFault::ListOutdated, "Die Versionsliste ist älter als eine, die es schon gab; deshalb gilt sie nicht. "
                                "Versuchen Sie es später oder in einem anderen Netz noch einmal."},
    {UpdateFault::OlderVersion, "Auf dem Server liegt nur eine ältere Version. Ihre bleibt."},
    {UpdateFault::NothingForThisSystem, "Die neue Version gibt es für Ihr Betriebssystem noch nicht. Versuchen Sie es "
                                        "später noch einmal."},
    {UpdateFault::OtherFile, "Die Datei auf dem Server ist nicht die angekündigte. Versuchen Sie es später noch "
                             "einmal."},
    {UpdateFault::FileTooLong, "Es kam mehr als die angekündigte Datei; sie wurde verworfen. Versuchen Sie es später "
                               "noch einmal."},
    {UpdateFault::FileDamaged,
     "Die geladene Datei ist nicht die angekündigte; sie wurde verworfen und nicht gestartet. "
     "Laden Sie sie noch einmal."},
    {UpdateFault::DiskFull, "Der Datenträger ist voll. Schaffen Sie Platz und machen Sie dann weiter."},
    {UpdateFault::FolderUnusable, "Pirols Ordner für das Geladene lässt sich nicht benutzen. Prüfen Sie, ob Sie in "
                                  "Ihrem persönlichen Ordner schreiben dürfen."},
    {UpdateFault::FolderNotPrivate, "Pirols Ordner für das Geladene gehört jemand anderem; deshalb wurde nichts "
                                    "geladen. Löschen Sie den Ordner »update« in Pirols eigenem Ordner."},
    {UpdateFault::AnotherProgram, "Ein anderes Pirol lädt gerade schon. Beenden Sie es, oder warten Sie, bis es fertig "
                                  "ist."},
};
static_assert(std::size(faults) == static_cast<std::size_t>(UpdateFault::Count));
static_assert(std::is_sorted(std::begin(faults), std::end(faults),
                             [](const FaultRow& a, const FaultRow& b) { return a.fault < b.fault; }));

struct StatusRow {
    int first;
    int last;
    UpdateFault fault;
};

constexpr StatusRow statuses[] = {
    {300, 399, UpdateFault::Redirected},  {407, 407, UpdateFault::ProxyWantsPassword},
    {404, 404, UpdateFault::NotOnServer}, {410, 410, UpdateFault::NotOnServer},
    {511, 511, UpdateFault::WebPage},     {429, 429, UpdateFault::ServerBusy},
    {500, 599, UpdateFault::ServerBusy},
};

constexpr int expected[] = {200, 206, 416};

} // namespace

std::string_view MessageOf(UpdateFault fault) {
    return faults[static_cast<std::size_t>(fault)].message;
}

std::optional<UpdateFault> FaultOfStatus(int status) {
    if (std::find(std::begin(expected), std::end(expected), status) != std::end(expected))
        return std::nullopt;
    const auto* const row = std::find_if(std::begin(statuses), std::end(statuses), [&](const StatusRow& candidate) {
        return candidate.first <= status && status <= candidate.last;
    });
    return row == std::end(statuses) ? UpdateFault::BadAnswer : row->fault;
}

} // namespace pirol
