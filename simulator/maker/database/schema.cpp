#include "simulator/maker/database/schema.h"

namespace maker {
namespace {

constexpr const char* kAddressBookSql = R"sql(
CREATE TABLE ABStore (ROWID INTEGER PRIMARY KEY AUTOINCREMENT, Name TEXT, ExternalIdentifier TEXT, Type INTEGER,
    ConstraintsPath TEXT, ExternalModificationTag TEXT, ExternalSyncTag TEXT, AccountID INTEGER DEFAULT -1,
    Enabled INTEGER DEFAULT 1, SyncData BLOB, MeIdentifier INTEGER, Capabilities INTEGER);
INSERT INTO ABStore (ROWID, Name, Type) VALUES (0, NULL, 0);

CREATE TABLE ABPerson (ROWID INTEGER PRIMARY KEY AUTOINCREMENT, First TEXT, Last TEXT, Middle TEXT, FirstPhonetic TEXT,
    MiddlePhonetic TEXT, LastPhonetic TEXT, Organization TEXT, Department TEXT, Note TEXT, Kind INTEGER, Birthday TEXT,
    JobTitle TEXT, Nickname TEXT, Prefix TEXT, Suffix TEXT, FirstSort TEXT, LastSort TEXT, CreationDate INTEGER,
    ModificationDate INTEGER, CompositeNameFallback TEXT, ExternalIdentifier TEXT, ExternalModificationTag TEXT,
    ExternalUUID TEXT, StoreID INTEGER, DisplayName TEXT, ExternalRepresentation BLOB, FirstSortSection TEXT,
    LastSortSection TEXT, FirstSortLanguageIndex INTEGER DEFAULT 2147483647,
    LastSortLanguageIndex INTEGER DEFAULT 2147483647, PersonLink INTEGER DEFAULT -1, ImageURI TEXT,
    IsPreferredName INTEGER DEFAULT 1, guid TEXT);
CREATE INDEX ABPersonPersonLinkIndex ON ABPerson (PersonLink);
CREATE INDEX ABPersonModificationDateIndex ON ABPerson (ModificationDate);

CREATE TABLE ABPersonLink (ROWID INTEGER PRIMARY KEY AUTOINCREMENT, PreferredImagePersonID INTEGER DEFAULT -1,
    PreferredNamePersonID INTEGER DEFAULT -1, guid TEXT);

CREATE TABLE ABMultiValue (UID INTEGER PRIMARY KEY, record_id INTEGER, property INTEGER, identifier INTEGER,
    label INTEGER, value TEXT, guid TEXT);
CREATE INDEX ABMultiValueRecordIndex ON ABMultiValue (record_id);
CREATE INDEX ABMultiValuePropertyValueIndex ON ABMultiValue (property, value COLLATE NOCASE);
CREATE TABLE ABMultiValueLabel (value TEXT, UNIQUE (value));

CREATE TABLE ABMultiValueEntry (parent_id INTEGER, key INTEGER, value TEXT, UNIQUE (parent_id, key));
CREATE TABLE ABMultiValueEntryKey (value TEXT, UNIQUE (value));
CREATE TABLE ABPersonMultiValueDeletes (record_id INTEGER, property_id INTEGER, identifier INTEGER);
CREATE TABLE ABPersonChanges (record INTEGER, type INTEGER, Image INTEGER, ExternalIdentifier TEXT, StoreID INTEGER);
CREATE TABLE ABPersonSearchKey (person_id INTEGER, value BLOB, UNIQUE (person_id));
CREATE TABLE ABGroup (ROWID INTEGER PRIMARY KEY AUTOINCREMENT, Name TEXT);
CREATE TABLE ABGroupChanges (record INTEGER, type INTEGER);
CREATE TABLE ABGroupMembers (UID INTEGER PRIMARY KEY, group_id INTEGER, member_type INTEGER, member_id INTEGER,
    UNIQUE (group_id, member_type, member_id));
CREATE TABLE ABRecent (date INTEGER, name, property INTEGER, value);
CREATE TABLE FirstSortSectionCount (LanguageIndex, Section TEXT, StoreID, number,
    UNIQUE (LanguageIndex, Section, StoreID));
CREATE TABLE LastSortSectionCount (LanguageIndex, Section TEXT, StoreID, number,
    UNIQUE (LanguageIndex, Section, StoreID));

CREATE TABLE ABPhoneLastFour (multivalue_id INTEGER PRIMARY KEY, value TEXT);
CREATE INDEX ABPhoneLastFourIndex ON ABPhoneLastFour (value);

CREATE TABLE _SqliteDatabaseProperties (key TEXT, value TEXT, UNIQUE (key));
)sql";

constexpr const char* kImagesSql = R"sql(
CREATE TABLE ABThumbnailImage (ROWID INTEGER PRIMARY KEY AUTOINCREMENT, record_id INTEGER, format INTEGER,
    derived_from_format INTEGER, data BLOB, UNIQUE (record_id, format));
CREATE TABLE ABFullSizeImage (ROWID INTEGER PRIMARY KEY AUTOINCREMENT, record_id INTEGER UNIQUE, crop_x INTEGER,
    crop_y INTEGER, crop_width INTEGER, data BLOB);
CREATE TABLE _SqliteDatabaseProperties (key TEXT, value TEXT, UNIQUE (key));
)sql";

constexpr const char* kCallsSql = R"sql(
CREATE TABLE call (ROWID INTEGER PRIMARY KEY AUTOINCREMENT, address TEXT, date INTEGER, duration INTEGER,
    flags INTEGER, id INTEGER, name TEXT, country_code TEXT, network_code TEXT, read INTEGER, assisted INTEGER,
    face_time_data BLOB, originatingUIType TEXT);
CREATE INDEX date_index ON call (date);
CREATE TABLE _SqliteDatabaseProperties (key TEXT, value TEXT, UNIQUE (key));
INSERT INTO _SqliteDatabaseProperties VALUES ('call_history_limit', '100'), ('timer_all', '0'), ('timer_last', '0'),
    ('timer_lifetime', '0'), ('timer_incoming', '0'), ('timer_outgoing', '0');
)sql";

constexpr const char* kCallStoreSql = R"sql(
CREATE TABLE ZCALLDBPROPERTIES (Z_PK INTEGER PRIMARY KEY, Z_ENT INTEGER, Z_OPT INTEGER, ZTIMER_ALL FLOAT,
    ZTIMER_INCOMING FLOAT, ZTIMER_LAST FLOAT, ZTIMER_LAST_RESET TIMESTAMP, ZTIMER_LIFETIME FLOAT, ZTIMER_OUTGOING FLOAT);
CREATE TABLE ZCALLRECORD (Z_PK INTEGER PRIMARY KEY, Z_ENT INTEGER, Z_OPT INTEGER, ZANSWERED INTEGER, ZCALLTYPE INTEGER,
    ZDISCONNECTED_CAUSE INTEGER, ZFACE_TIME_DATA INTEGER, ZNUMBER_AVAILABILITY INTEGER, ZORIGINATED INTEGER,
    ZREAD INTEGER, ZDATE TIMESTAMP, ZDURATION FLOAT, ZADDRESS BLOB, ZDEVICE_ID VARCHAR, ZISO_COUNTRY_CODE VARCHAR,
    ZNAME VARCHAR, ZUNIQUE_ID VARCHAR);
CREATE TABLE Z_PRIMARYKEY (Z_ENT INTEGER PRIMARY KEY, Z_NAME VARCHAR, Z_SUPER INTEGER, Z_MAX INTEGER);
INSERT INTO Z_PRIMARYKEY VALUES (1, 'CallDBProperties', 0, 1), (2, 'CallRecord', 0, 0);
INSERT INTO ZCALLDBPROPERTIES VALUES (1, 1, 1, 0, 0, 0, 0, 0, 0);
CREATE TABLE Z_METADATA (Z_VERSION INTEGER PRIMARY KEY, Z_UUID VARCHAR(255), Z_PLIST BLOB);
INSERT INTO Z_METADATA VALUES (1, '5A454C4B-4143-4200-8000-000000000000', NULL);
)sql";

}  // namespace

const DatabaseShape& addressBookShape() {
    static const DatabaseShape shape{"an address book (AddressBook.sqlitedb)",
                                     "private/var/mobile/Library/AddressBook/AddressBook.sqlitedb",
                                     kAddressBookSql,
                                     {{"ABPerson",
                                       {"First", "Last", "Middle", "Prefix", "Suffix", "Nickname", "Organization",
                                        "ModificationDate", "PersonLink", "IsPreferredName"}},
                                      {"ABMultiValue", {"UID", "record_id", "property", "label", "value"}},
                                      {"ABMultiValueLabel", {"value"}},
                                      {"ABPhoneLastFour", {"multivalue_id", "value"}}}};
    return shape;
}

const DatabaseShape& imagesShape() {
    static const DatabaseShape shape{"an address book's images (AddressBookImages.sqlitedb)",
                                     "private/var/mobile/Library/AddressBook/AddressBookImages.sqlitedb",
                                     kImagesSql,
                                     {{"ABThumbnailImage", {"record_id", "format", "derived_from_format", "data"}},
                                      {"ABFullSizeImage", {"record_id", "crop_x", "crop_y", "crop_width", "data"}}}};
    return shape;
}

const DatabaseShape& callHistoryShape() {
    static const DatabaseShape shape{"a call history (call_history.db)",
                                     "private/var/wireless/Library/CallHistory/call_history.db",
                                     kCallsSql,
                                     {{"call", {"address", "date", "duration", "flags", "id"}}}};
    return shape;
}

const DatabaseShape& callStoreShape() {
    static const DatabaseShape shape{"a call history (CallHistory.storedata)",
                                     "private/var/mobile/Library/CallHistoryDB/CallHistory.storedata",
                                     kCallStoreSql,
                                     {{"ZCALLRECORD",
                                       {"Z_PK", "Z_ENT", "Z_OPT", "ZADDRESS", "ZDATE", "ZDURATION", "ZORIGINATED",
                                        "ZANSWERED", "ZCALLTYPE", "ZREAD", "ZNAME", "ZISO_COUNTRY_CODE", "ZUNIQUE_ID"}},
                                      {"Z_PRIMARYKEY", {"Z_NAME", "Z_MAX"}}}};
    return shape;
}

const DatabaseShape& callsShape(const phone::Device& device) {
    return phone::keepsCallStore(device) ? callStoreShape() : callHistoryShape();
}

std::array<const DatabaseShape*, 3> databaseShapes(const phone::Device& device) {
    return {&addressBookShape(), &imagesShape(), &callsShape(device)};
}

}  // namespace maker
