#include "DatabaseServer.h"

#include "OdbcSetup.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <thread>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <pwd.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace pellam::test {

namespace {

int freePort() {
    const int handle = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* const generic = reinterpret_cast<sockaddr*>(&address);
    ::bind(handle, generic, size);
    ::getsockname(handle, generic, &size);
    ::close(handle);
    return ntohs(address.sin_port);
}

// The newest of the versions that are installed side by side.
std::string postgresFolder() {
    std::string newest;
    std::error_code none;
    for (const auto& version : std::filesystem::directory_iterator("/usr/lib/postgresql", none))
        newest = std::max(newest, (version.path() / "bin/").string());
    return newest;
}

// One that has just ended stays until its stopped parent takes note.
bool isStopped(pid_t process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    std::string number;
    std::string name;
    std::string state;
    file >> number >> name >> state;
    return !file || state == "T" || state == "Z";
}

} // namespace

DatabaseServer::DatabaseServer(Engine engine) : m_engine(engine) {
    const bool postgres = engine == Engine::PostgreSql;
    if (::geteuid() == 0) {
        // Database servers refuse to run as root.
        m_user = postgres ? "postgres" : "mysql";
        const passwd* const entry = ::getpwnam(m_user.c_str());
        if (!entry || ::chown(m_folder.path().c_str(), entry->pw_uid, entry->pw_gid) != 0)
            throw std::runtime_error("no user " + m_user);
    }
    makeData();
    for (int attempt = 0; attempt < 3; ++attempt) {
        launch();
        if (comesUp()) {
            makeUser();
            return;
        }
        kill();
    }
    throw std::runtime_error("the server does not start:\n" + m_folder.read("log"));
}

DatabaseServer::~DatabaseServer() {
    kill();
}

std::string DatabaseServer::asUser(const std::string& command) const {
    if (m_user.empty()) return command;
    return "setpriv --reuid=" + m_user + " --regid=" + m_user + " --clear-groups " + command;
}

bool DatabaseServer::tryShell(const std::string& command) const {
    const std::string line = "cd / && " + command + " >>" + m_folder.path("log") + " 2>&1";
    return std::system(line.c_str()) == 0;
}

void DatabaseServer::shell(const std::string& command) const {
    if (!tryShell(command)) throw std::runtime_error(command + "\n" + m_folder.read("log"));
}

void DatabaseServer::makeData() const {
    const std::string data = m_folder.path("data");
    if (m_engine == Engine::PostgreSql) {
        shell(asUser(postgresFolder() + "initdb -U admin -A trust -E UTF8 --locale=C.UTF-8 -N -D " +
                     data));
        m_folder.write("data/pg_hba.conf", "host all admin 127.0.0.1/32 trust\n"
                                           "host all all 127.0.0.1/32 scram-sha-256\n");
    } else {
        shell(asUser("mariadb-install-db --no-defaults --skip-test-db --skip-name-resolve "
                     "--auth-root-authentication-method=normal --datadir=" +
                     data));
    }
}

std::string DatabaseServer::serverCommand() const {
    const std::string data = m_folder.path("data");
    const std::string port = std::to_string(m_port);
    if (m_engine == Engine::PostgreSql) {
        return asUser("setpriv --pdeathsig=QUIT " + postgresFolder() + "postgres -D " + data +
                      " -p " + port +
                      " -c listen_addresses=127.0.0.1 -c unix_socket_directories= -c fsync=off"
                      " -c full_page_writes=off -c max_wal_size=4GB -c shared_buffers=256MB"
                      " -c work_mem=256MB");
    }
    return asUser("setpriv --pdeathsig=KILL /usr/sbin/mariadbd --no-defaults --datadir=" + data +
                  " --port=" + port +
                  " --bind-address=127.0.0.1 --socket=" + m_folder.path("socket") +
                  " --skip-name-resolve --innodb-flush-log-at-trx-commit=0"
                  " --skip-innodb-doublewrite --innodb-buffer-pool-size=256M"
                  " --sort-buffer-size=64M --character-set-server=utf8mb4");
}

void DatabaseServer::launch() {
    m_port = freePort();
    const std::string line = "exec " + serverCommand() + " >>" + m_folder.path("log") + " 2>&1";
    m_pid = ::fork();
    if (m_pid != 0) return;
    ::execl("/bin/sh", "sh", "-c", line.c_str(), nullptr);
    ::_exit(127);
}

std::string DatabaseServer::client(bool administrator) const {
    const std::string port = std::to_string(m_port);
    const std::string database = administrator ? "" : " sessions";
    if (m_engine == Engine::PostgreSql) {
        return "psql -X -q -v ON_ERROR_STOP=1 -h 127.0.0.1 -U admin -p " + port + " -d" +
               (administrator ? " postgres" : database);
    }
    return "mariadb --no-defaults --default-character-set=utf8mb4 -h 127.0.0.1 -u root -P " + port +
           database;
}

bool DatabaseServer::comesUp() {
    using namespace std::chrono_literals;
    for (int i = 0; i < 300; ++i) {
        if (::waitpid(m_pid, nullptr, WNOHANG) == m_pid) {
            m_pid = -1;
            return false;
        }
        if (tryShell("echo 'SELECT 1' | " + client(true))) return true;
        std::this_thread::sleep_for(100ms);
    }
    return false;
}

void DatabaseServer::makeUser() const {
    const bool postgres = m_engine == Engine::PostgreSql;
    const std::string script = m_folder.write(
        "user.sql", postgres ? "CREATE USER pellam PASSWORD 'open sesame';\n"
                               "CREATE DATABASE sessions;\n"
                             : "CREATE DATABASE sessions;\n"
                               "CREATE USER 'pellam'@'127.0.0.1' IDENTIFIED BY 'open sesame';\n"
                               "GRANT ALL ON sessions.* TO 'pellam'@'127.0.0.1';\n");
    shell(client(true) + " < " + script);
    if (postgres) run("ALTER DEFAULT PRIVILEGES IN SCHEMA public GRANT ALL ON TABLES TO pellam;");
}

void DatabaseServer::run(const std::string& sql) const {
    shell(client(false) + " < " + m_folder.write("run.sql", sql));
}

void DatabaseServer::addSource(OdbcSetup& odbc, const std::string& name,
                               const std::string& password, const std::string& fetching) const {
    const bool postgres = m_engine == Engine::PostgreSql;
    std::string settings = postgres ? "Servername=127.0.0.1\nUserName=pellam\n" + fetching
                                    : "Server=127.0.0.1\nUser=pellam\nCharset=utf8mb4";
    settings += "\nPassword=" + password + "\nDatabase=sessions\nPort=" + std::to_string(m_port);
    odbc.addSource(name, postgres ? "PostgreSQL" : "MariaDB", settings);
}

std::vector<pid_t> DatabaseServer::processes() const {
    std::vector<pid_t> all{m_pid};
    const std::string path = "/proc/" + std::to_string(m_pid) + "/task/" + std::to_string(m_pid);
    std::ifstream children(path + "/children");
    for (pid_t child = 0; children >> child;)
        all.push_back(child);
    return all;
}

void DatabaseServer::signal(int number) const {
    if (m_pid < 0) return;
    for (const pid_t process : processes())
        ::kill(process, number);
}

void DatabaseServer::pause() const {
    signal(SIGSTOP);
    // The signal takes its time to reach every thread.
    ::waitpid(m_pid, nullptr, WUNTRACED);
    for (const pid_t process : processes())
        while (!isStopped(process))
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

void DatabaseServer::resume() const {
    signal(SIGCONT);
}

void DatabaseServer::kill() {
    if (m_pid < 0) return;
    resume();
    // PostgreSQL gives back its shared memory on SIGQUIT alone.
    ::kill(m_pid, m_engine == Engine::PostgreSql ? SIGQUIT : SIGKILL);
    ::waitpid(m_pid, nullptr, 0);
    m_pid = -1;
}

} // namespace pellam::test
