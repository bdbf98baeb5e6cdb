#include "dav_server.h"

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <filesystem>
#include <stdexcept>

namespace {

sockaddr_in loopback(int port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(static_cast<std::uint16_t>(port));
  return address;
}

int freePort() {
  const int socket = ::socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address = loopback(0);
  socklen_t size = sizeof(address);
  const bool isBound = ::bind(socket, reinterpret_cast<sockaddr*>(&address), size) == 0 &&
                       ::getsockname(socket, reinterpret_cast<sockaddr*>(&address), &size) == 0;
  ::close(socket);
  if (!isBound) throw std::runtime_error("no free port");
  return ntohs(address.sin_port);
}

bool listens(int port) {
  const int socket = ::socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address = loopback(port);
  const bool isThere =
      ::connect(socket, reinterpret_cast<sockaddr*>(&address), sizeof(address)) == 0;
  ::close(socket);
  return isThere;
}

constexpr const char* kRights =
    "[root]\nuser: .*\ncollection:\npermissions: R\n"
    "[guest]\nuser: guest\ncollection: .*\npermissions: Rr\n"
    "[principal]\nuser: kaya\ncollection: [^/]+\npermissions: RW\n"
    "[books]\nuser: kaya\ncollection: [^/]+/[^/]+\npermissions: rw\n";

}  // namespace

DavServer::DavServer() : port_(freePort()) {
  std::filesystem::create_directories(collection());
  writeFile(collection() + "/.Radicale.props",
            R"({"tag": "VADDRESSBOOK", "D:displayname": "Study"})");
  writeFile(folder_.at("users"), "kaya:secret\nguest:secret\n");
  writeFile(folder_.at("rights"), kRights);
  writeFile(folder_.at("config"),
            "[server]\nhosts = 127.0.0.1:" + std::to_string(port_) +
                "\n[auth]\ntype = htpasswd\nhtpasswd_filename = " + folder_.at("users") +
                "\nhtpasswd_encryption = plain\ndelay = 0\n[storage]\nfilesystem_folder = " +
                folder_.at("collections") +
                "\n[rights]\ntype = from_file\nfile = " + folder_.at("rights") + "\n");
  start();
}

void DavServer::start() {
  const char* const programs = std::getenv("PATH");
  server_.emplace(std::vector<std::string>{"radicale", "--config", folder_.at("config")},
                  std::vector<std::string>{std::string("PATH=") + programs, "LANG=C.UTF-8"});
  if (!eventually([&] { return listens(port_); })) throw std::runtime_error("no CardDAV server");
}

std::string DavServer::url() const {
  return "http://127.0.0.1:" + std::to_string(port_) + "/kaya/study/";
}

std::string DavServer::collection() const {
  return folder_.at("collections/collection-root/kaya/study");
}

std::string DavServer::cards() const {
  std::string all;
  for (const auto& file : std::filesystem::directory_iterator(collection())) {
    if (file.path().extension() == ".vcf") all += readFile(file.path());
  }
  return all;
}

void DavServer::put(const std::string& name, const std::string& card) const {
  writeFile(collection() + "/" + name, card);
}
