#include "sample/SampleDatabase.h"

#include "platform/linux/database.h"
#include "sample/Identity.h"
#include "sample/Names.h"
#include "sample/Places.h"
#include "sample/Random.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <vector>

namespace sample {

namespace {

using platform::Database;
using platform::Statement;

constexpr std::uint64_t seed = 20240229;
constexpr int centsInOne = 100;

constexpr const char* schema = R"(
PRAGMA page_size = 4096;
PRAGMA journal_mode = OFF;
PRAGMA synchronous = OFF;
CREATE TABLE clientes (
    id INTEGER PRIMARY KEY,
    nombre TEXT NOT NULL,
    nif TEXT NOT NULL,
    contacto TEXT,
    direccion TEXT NOT NULL,
    codigo_postal TEXT NOT NULL,
    poblacion TEXT NOT NULL,
    provincia TEXT NOT NULL,
    telefono TEXT,
    correo TEXT,
    fecha_alta DATE NOT NULL,
    descuento NUMERIC(5,2) NOT NULL,
    limite_credito NUMERIC(10,2),
    recargo_equivalencia BOOLEAN NOT NULL,
    activo BOOLEAN NOT NULL,
    observaciones TEXT
);
CREATE TABLE articulos (
    id INTEGER PRIMARY KEY,
    codigo TEXT NOT NULL UNIQUE,
    descripcion TEXT NOT NULL,
    familia TEXT NOT NULL,
    marca TEXT,
    precio NUMERIC(10,2) NOT NULL,
    coste NUMERIC(10,2) NOT NULL,
    iva NUMERIC(4,2) NOT NULL,
    existencias INTEGER NOT NULL,
    peso_kg REAL,
    codigo_barras TEXT NOT NULL,
    ultima_compra DATE,
    descatalogado BOOLEAN NOT NULL
);
CREATE TABLE pedidos (
    id INTEGER PRIMARY KEY,
    numero TEXT NOT NULL UNIQUE,
    cliente INTEGER NOT NULL REFERENCES clientes(id),
    fecha DATETIME NOT NULL,
    fecha_entrega DATE,
    estado TEXT NOT NULL,
    forma_pago TEXT NOT NULL,
    base NUMERIC(10,2) NOT NULL,
    cuota_iva NUMERIC(10,2) NOT NULL,
    portes NUMERIC(10,2),
    total NUMERIC(10,2) NOT NULL,
    pagado BOOLEAN NOT NULL,
    observaciones TEXT
);
CREATE TABLE lineas (
    pedido INTEGER NOT NULL REFERENCES pedidos(id),
    linea INTEGER NOT NULL,
    articulo INTEGER NOT NULL REFERENCES articulos(id),
    cantidad INTEGER NOT NULL,
    precio NUMERIC(10,2) NOT NULL,
    descuento NUMERIC(5,2) NOT NULL,
    iva NUMERIC(4,2) NOT NULL,
    importe NUMERIC(10,2) NOT NULL,
    PRIMARY KEY (pedido, linea)
) WITHOUT ROWID;
BEGIN;
)";

constexpr std::string_view customerNotes[] = {
    "Llamar antes de entregar.",
    "Sólo recibe mercancía por las mañanas, de 8:30 a 13:00.",
    "Factura única a fin de mes.",
    "Pide siempre confirmación por correo; el almacén está en la calle de atrás, entrada por el patio.",
    "Cliente del antiguo distribuidor de la zona.",
    "Descuento revisado por dirección.",
};

constexpr std::string_view orderNotes[] = {
    "Entregar en obra.",
    "Urgente.",
    "Dejar en conserjería.",
    "Completar con el pedido anterior.",
    "El cliente pasa a recogerlo.",
};

constexpr std::string_view payments[] = {
    "Transferencia", "Recibo a 30 días", "Recibo a 60 días", "Tarjeta", "Contado", "Pagaré",
};

/// A day as the days since 1 January 1970.
constexpr std::int64_t firstCustomerDay = 14610; // 2010-01-01
constexpr std::int64_t lastCustomerDay = 18992;  // 2021-12-31
constexpr std::int64_t firstOrderDay = 18995;    // 2022-01-03
constexpr std::int64_t lastOrderDay = 20088;     // 2024-12-31

std::string isoDate(std::int64_t day) {
    // Years counted from March, so that the leap day ends one.
    const std::int64_t shifted = day + 719468;
    const std::int64_t era = shifted / 146097;
    const std::int64_t dayOfEra = shifted % 146097;
    const std::int64_t yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const std::int64_t monthFromMarch = (5 * dayOfYear + 2) / 153;
    const int dayOfMonth = static_cast<int>(dayOfYear - (153 * monthFromMarch + 2) / 5 + 1);
    const int month = static_cast<int>(monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9);
    const int year = static_cast<int>(yearOfEra + era * 400 + (month <= 2 ? 1 : 0));
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d", year, month, dayOfMonth);
    return text.data();
}

std::string padded(std::int64_t number, std::size_t width) {
    std::string text = std::to_string(number);
    return std::string(width - std::min(width, text.size()), '0') + text;
}

double amount(std::int64_t cents) {
    return static_cast<double>(cents) / centsInOne;
}

std::int64_t rounded(std::int64_t value, std::int64_t divisor) {
    return (value + divisor / 2) / divisor;
}

/// Binds the values of one row in order and inserts it.
class Inserter {
public:
    Inserter(const Database& database, const std::string& table)
        : statement_(database.prepare(text(table, static_cast<int>(database.columns(table).size())))) {}

    Inserter& operator<<(std::int64_t value) { return (statement_.bind(++column_, value), *this); }
    Inserter& operator<<(int value) { return *this << std::int64_t{value}; }
    Inserter& operator<<(double value) { return (statement_.bind(++column_, value), *this); }
    Inserter& operator<<(bool value) { return *this << std::int64_t{value ? 1 : 0}; }
    Inserter& operator<<(std::string_view value) { return (statement_.bind(++column_, value), *this); }
    Inserter& operator<<(const std::string& value) { return *this << std::string_view(value); }
    Inserter& operator<<(const char* value) { return *this << std::string_view(value); }
    template <class T>
    Inserter& operator<<(const std::optional<T>& value) {
        if (value) return *this << *value;
        return (statement_.bind(++column_, nullptr), *this);
    }

    void insert() {
        statement_.run();
        column_ = 0;
    }

private:
    static std::string text(const std::string& table, int columns) {
        std::string sql = "INSERT INTO " + table + " VALUES(?";
        for (int i = 1; i < columns; ++i)
            sql += ", ?";
        return sql + ")";
    }

    Statement statement_;
    int column_ = 0;
};

class Writer {
public:
    explicit Writer(const Database& database)
        : customers_(database, "clientes"), articles_(database, "articulos"), orders_(database, "pedidos"),
          lines_(database, "lineas") {
        for (const Place& place : places())
            for (int i = 0; i < place.share; ++i)
                ballot_.push_back(&place);
    }

    void writeAll() {
        for (int id = 1; id <= customerCount; ++id)
            writeCustomer(id);
        for (int id = 1; id <= articleCount; ++id)
            writeArticle(id);
        for (int id = 1; id <= orderCount; ++id)
            writeOrder(id);
    }

private:
    struct Article {
        std::int64_t price;
        int taxPercent;
    };
    struct Totals {
        std::int64_t net = 0;
        std::int64_t tax = 0;
    };

    template <class T>
    std::optional<T> maybe(int percent, const T& value) {
        if (random_.chance(percent)) return value;
        return std::nullopt;
    }

    void writeCustomer(int id);
    void writeArticle(int id);
    void writeOrder(int id);
    Totals writeLines(int order);
    std::string phone(int province);

    Random random_{seed};
    Inserter customers_;
    Inserter articles_;
    Inserter orders_;
    Inserter lines_;
    std::vector<const Place*> ballot_; ///< Each place as often as its share
    std::vector<Article> stock_;
};

std::string Writer::phone(int province) {
    const bool mobile = random_.chance(45);
    const std::int64_t head = mobile ? random_.between(600, 699) : phonePrefix(province);
    const std::string middle = padded(random_.between(0, 999), 3);
    const std::string tail = padded(random_.between(0, 999), 3);
    return padded(head, 3) + " " + middle + " " + tail;
}

void Writer::writeCustomer(int id) {
    const bool company = random_.chance(58);
    const Place& place = *random_.oneOf(std::span<const Place* const>(ballot_));
    const std::int64_t postalCode = place.firstPostalCode + random_.between(0, place.postalCodes - 1);
    const int province = place.firstPostalCode / 1000;
    const Person person = makePerson(random_);
    std::string name = person.fullName();
    std::string nif;
    if (company) {
        char form = 0;
        name = makeCompany(random_, form);
        nif = nifOfCompany(form, province, random_.between(10000, 99999));
    } else if (random_.chance(6)) {
        nif = nifOfForeigner(random_.between(100'000, 29'999'999));
    } else {
        nif = nifOfPerson(random_.between(1'000'000, 79'999'999));
    }
    constexpr int discounts[] = {0, 0, 0, 0, 200, 300, 500, 750, 1000, 1250};
    customers_ << id << name << nif << (company ? std::optional(person.fullName()) : std::nullopt)
               << makeStreet(random_) << padded(postalCode, 5) << place.town << place.province
               << maybe(94, phone(province)) << maybe(80, makeMail(random_, person.fullName()))
               << isoDate(random_.between(firstCustomerDay, lastCustomerDay))
               << amount(random_.oneOf(discounts))
               << maybe(70, amount(random_.between(3, 120) * 500 * centsInOne))
               << (!company && random_.chance(30)) << random_.chance(91)
               << maybe(18, std::string(random_.oneOf(customerNotes)));
    customers_.insert();
}

void Writer::writeArticle(int id) {
    constexpr std::int64_t spanishBarCodes = 840'000'000'000;
    constexpr int gramsInKilo = 1000;
    const ArticleKind& kind = random_.oneOf(articleKinds());
    const std::string_view brand = random_.oneOf(brands());
    const std::int64_t price = random_.between(kind.cheapest, kind.dearest);
    const std::int64_t cost = rounded(price * random_.between(52, 78), 100);
    const std::int64_t grams = kind.grams * random_.between(70, 140) / 100;
    const bool branded = random_.chance(85);
    std::string description(kind.name);
    description += " ";
    description += makeVariant(random_, kind);
    articles_ << id << std::string(kind.code) + "-" + padded(id, 5) << description << kind.family
              << (branded ? std::optional(brand) : std::nullopt) << amount(price) << amount(cost)
              << kind.taxPercent << random_.between(0, 900)
              << maybe(92, static_cast<double>(grams) / gramsInKilo)
              << ean13(spanishBarCodes + random_.between(1'000'000, 999'999'999))
              << maybe(88, isoDate(random_.between(firstOrderDay, lastOrderDay))) << random_.chance(7);
    articles_.insert();
    stock_.push_back({price, kind.taxPercent});
}

Writer::Totals Writer::writeLines(int order) {
    constexpr int lineCounts[] = {1, 1, 2, 2, 2, 3, 3, 3, 4, 4, 5, 7};
    constexpr int quantities[] = {1, 1, 1, 2, 2, 3, 4, 5, 6, 10, 12, 24};
    constexpr int discounts[] = {0, 0, 0, 0, 5, 10};
    Totals totals;
    const int count = random_.oneOf(lineCounts);
    for (int line = 1; line <= count; ++line) {
        const auto article = random_.between(1, articleCount);
        const Article& sold = stock_[static_cast<std::size_t>(article - 1)];
        const int quantity = random_.oneOf(quantities);
        const int discount = random_.oneOf(discounts);
        const std::int64_t net = rounded(sold.price * quantity * (100 - discount), 100);
        totals.net += net;
        totals.tax += rounded(net * sold.taxPercent, 100);
        lines_ << order << line << article << quantity << amount(sold.price) << discount << sold.taxPercent
               << amount(net);
        lines_.insert();
    }
    return totals;
}

void Writer::writeOrder(int id) {
    constexpr std::int64_t freeCarriage = 30000; // cents
    constexpr std::int64_t minutesInDay = 1440;
    constexpr std::int64_t opening = 480; // minutes after midnight
    constexpr std::int64_t closing = 1140;
    // Orders come in evenly over the period, so that their numbers follow the calendar.
    const std::int64_t minute = std::int64_t{id} * (lastOrderDay - firstOrderDay) * minutesInDay / orderCount;
    const std::int64_t day = firstOrderDay + minute / minutesInDay;
    const std::int64_t clock = random_.between(opening, closing);
    const std::string date = isoDate(day);
    const std::string time =
        padded(clock / 60, 2) + ":" + padded(clock % 60, 2) + ":" + padded(random_.between(0, 59), 2);
    const bool recent = lastOrderDay - day < 10;
    const bool cancelled = random_.chance(3);
    const bool delivered = !cancelled && (!recent || random_.chance(35));
    const std::int64_t carriage = random_.between(6, 19) * 75;
    const Totals totals = writeLines(id);
    const std::int64_t charged = totals.net < freeCarriage ? carriage : 0;
    orders_ << id << date.substr(0, 4) + "/" + padded(id, 6) << random_.between(1, customerCount)
            << date + " " + time
            << (delivered ? std::optional(isoDate(day + random_.between(1, 9))) : std::nullopt)
            << (cancelled   ? "Anulado"
                : delivered ? "Servido"
                            : "Pendiente")
            << random_.oneOf(payments) << amount(totals.net) << amount(totals.tax)
            << (charged ? std::optional(amount(charged)) : std::nullopt)
            << amount(totals.net + totals.tax + charged) << (delivered && random_.chance(90))
            << maybe(9, std::string(random_.oneOf(orderNotes)));
    orders_.insert();
}

} // namespace

void writeSampleDatabase(const std::string& path) {
    const std::string unfinished = path + ".nuevo";
    std::filesystem::remove(unfinished);
    try {
        const Database database(unfinished, Database::Access::Create);
        database.execute(schema);
        Writer(database).writeAll();
        database.execute("CREATE INDEX pedidos_cliente ON pedidos(cliente);"
                         "CREATE INDEX lineas_articulo ON lineas(articulo);"
                         "COMMIT;");
    } catch (...) {
        std::filesystem::remove(unfinished);
        throw;
    }
    std::filesystem::rename(unfinished, path);
}

} // namespace sample
