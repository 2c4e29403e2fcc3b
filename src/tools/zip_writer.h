#pragma once

#include <QString>

#include <stop_token>

namespace kestor {

/// Writes a zip at `destination` whose single top-level entry is the folder `source`, with modes, times, empty folders
/// and symbolic links (as links), in the order of the names. An older file at `destination` is replaced at the very
/// end, so that a failure leaves it as it was; it never gets into its own zip. Sockets, pipes and devices are left out.
/// Returns why it failed, "" on success. Blocks on the disk: for a worker thread. `stop` is looked at between blocks of
/// a few hundred kilobytes.
QString writeZip(const QString &source, const QString &destination, const std::stop_token &stop);

} // namespace kestor
