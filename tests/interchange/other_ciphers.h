#pragma once

#include <cstdio>
#include <memory>
#include <regex>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/temp_folder.h"

namespace tarvola::test {

/// The enciphered form read by others than the library: Base64 by coreutils, the envelope, SHA-1 and RC2 by the command
/// line of OpenSSL with its legacy provider, zlib's format by gzip. The packages of the tests bring them along.
class OtherCiphers {
 public:
  /// The enciphered text behind Base64, as its UTF-16 without padding.
  [[nodiscard]] std::string decipher(std::string_view base64, std::string_view asciiPassword) const {
    folder_.write("text", base64);
    run("tr -d '\\r\\n' < text | base64 -d > der");
    const std::string der = folder_.read("der");
    const std::vector<std::string> octets = octetStrings(der, run("openssl asn1parse -inform DER -in der"));
    if (octets.size() != 3) return "no three octet strings";
    folder_.write("ciphertext", octets[2]);
    run("openssl enc -d -rc2-cbc -provider legacy -provider default -in ciphertext -out plain -K " +
        keyDigits(asciiPassword, octets[1]) + " -iv " + hexadecimal(octets[0]));
    return folder_.read("plain");
  }

  /// UTF-16 enciphered, with padding.
  [[nodiscard]] std::string encipher(std::string_view utf16, std::string_view asciiPassword, std::string_view salt,
                                     std::string_view iv) const {
    folder_.write("plain", utf16);
    run("openssl enc -rc2-cbc -provider legacy -provider default -in plain -out ciphertext -K " +
        keyDigits(asciiPassword, salt) + " -iv " + hexadecimal(iv));
    return folder_.read("ciphertext");
  }

  /// What a zlib stream holds. Under the head of another format gzip finds the same data in it; what follows that is
  /// not gzip's, so its complaint about the end is dropped.
  [[nodiscard]] std::string inflate(std::string_view zlibStream) const {
    folder_.write("stream", std::string("\x1f\x8b\x08\0\0\0\0\0", 8).append(zlibStream));
    run("gzip -dc < stream > inflated 2>/dev/null || true");
    return folder_.read("inflated");
  }

  static std::string hexadecimal(std::string_view bytes) {
    std::string digits;
    for (const char byte : bytes) {
      digits += "0123456789abcdef"[static_cast<unsigned char>(byte) >> 4U];
      digits += "0123456789abcdef"[static_cast<unsigned char>(byte) & 0xFU];
    }
    return digits;
  }

  /// ASCII as UTF-16, low byte first.
  static std::string wide(std::string_view ascii) {
    std::string bytes;
    for (const char c : ascii) bytes.append({c, '\0'});
    return bytes;
  }

 private:
  [[nodiscard]] std::string keyDigits(std::string_view asciiPassword, std::string_view salt) const {
    folder_.write("hashed", wide(asciiPassword).append(salt));
    run("openssl dgst -sha1 -binary -out digest hashed");
    return hexadecimal(folder_.read("digest").substr(0, 16));
  }

  std::string run(const std::string& command) const {
    const std::string inFolder = "cd '" + folder_.path() + "' && { " + command + "; }";
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe(::popen(inFolder.c_str(), "r"), ::pclose);
    std::string output;
    for (int c = std::fgetc(pipe.get()); c != EOF; c = std::fgetc(pipe.get())) output += static_cast<char>(c);
    return output;
  }

  /// "   87:d=5  hl=2 l=   8 prim: OCTET STRING": offset, bytes of the head, bytes of the content.
  static std::vector<std::string> octetStrings(const std::string& der, const std::string& listing) {
    static const std::regex value(R"(\s*(\d+):d=\d+\s+hl=\s*(\d+)\s+l=\s*(\d+)\s+prim:\s+OCTET STRING)");
    std::vector<std::string> contents;
    for (std::sregex_iterator found(listing.begin(), listing.end(), value), end; found != end; ++found)
      contents.push_back(der.substr(std::stoul((*found)[1]) + std::stoul((*found)[2]), std::stoul((*found)[3])));
    return contents;
  }

  TempFolder folder_;
};

}  // namespace tarvola::test
