// SPDX-License-Identifier: MIT
#pragma once

#include <array>

namespace Tarvik::PointCollections {

/// A group that the scenes make of the sample.
struct Continent {
  const char* name;
  const char* cities; ///< separated by commas, in alphabetical order
};

/// Most cities of the sample; the others stay without a group.
inline constexpr std::array<Continent, 6> continents = {{
    {"Europe",
     "Amsterdam,Andorra,Athens,Belgrade,Berlin,Bratislava,Brussels,Bucharest,Budapest,Chisinau,"
     "Copenhagen,Dublin,Gibraltar,Helsinki,Kaliningrad,Kirov,Kyiv,Lisbon,Ljubljana,London,"
     "Luxembourg,Madrid,Malta,Minsk,Monaco,Moscow,Oslo,Paris,Podgorica,Prague,Reykjavik,Riga,Rome,"
     "Samara,Sarajevo,Saratov,Simferopol,Skopje,Sofia,Stockholm,Tallinn,Tirane,Ulyanovsk,Vienna,"
     "Vilnius,Volgograd,Warsaw,Zagreb,Zurich"},
    {"Africa",
     "Abidjan,Accra,Addis Ababa,Algiers,Antananarivo,Asmara,Bamako,Bangui,Banjul,Bissau,Blantyre,"
     "Brazzaville,Bujumbura,Cairo,Casablanca,Ceuta,Conakry,Dakar,Dar es Salaam,Djibouti,Douala,"
     "El Aaiun,Freetown,Gaborone,Harare,Johannesburg,Juba,Kampala,Khartoum,Kigali,Kinshasa,Lagos,"
     "Libreville,Lome,Luanda,Lubumbashi,Lusaka,Malabo,Maputo,Maseru,Mbabane,Mogadishu,Monrovia,"
     "Nairobi,Ndjamena,Niamey,Nouakchott,Ouagadougou,Porto-Novo,Sao Tome,Tripoli,Tunis,Windhoek"},
    {"Asia",
     "Aden,Almaty,Amman,Aqtau,Aqtobe,Ashgabat,Atyrau,Baghdad,Bahrain,Baku,Bangkok,Barnaul,Beirut,"
     "Bishkek,Brunei,Chita,Colombo,Damascus,Dhaka,Dubai,Dushanbe,Ho Chi Minh,Hong Kong,Hovd,"
     "Irkutsk,Istanbul,Jakarta,Jerusalem,Kabul,Karachi,Kathmandu,Kolkata,Krasnoyarsk,Kuala Lumpur,"
     "Kuwait,Macau,Manila,Muscat,Nicosia,Novosibirsk,Omsk,Oral,Phnom Penh,Pyongyang,Qatar,Qostanay,"
     "Riyadh,Samarkand,Seoul,Shanghai,Singapore,Taipei,Tashkent,Tbilisi,Tehran,Thimphu,Tokyo,Tomsk,"
     "Ulaanbaatar,Urumqi,Vientiane,Vladivostok,Yakutsk,Yangon,Yekaterinburg,Yerevan"},
    {"North America",
     "Anchorage,Boise,Chicago,Chihuahua,Dawson,Denver,Detroit,Edmonton,Halifax,Havana,Indianapolis,"
     "Iqaluit,Juneau,Los Angeles,Louisville,Mexico City,Monterrey,New York,Nome,Nuuk,Panama,"
     "Phoenix,Port-au-Prince,Puerto Rico,Regina,Santo Domingo,St Johns,Thule,Tijuana,Toronto,"
     "Vancouver,Whitehorse,Winnipeg"},
    {"South America",
     "Araguaina,Asuncion,Bahia,Belem,Boa Vista,Bogota,Buenos Aires,Campo Grande,Caracas,Catamarca,"
     "Cayenne,Cordoba,Cuiaba,Fortaleza,Guayaquil,Guyana,La Paz,Lima,Maceio,Manaus,Mendoza,"
     "Montevideo,Paramaribo,Porto Velho,Punta Arenas,Recife,Salta,Santarem,Santiago,Sao Paulo,"
     "Ushuaia"},
    {"Oceania",
     "Adelaide,Apia,Auckland,Brisbane,Darwin,Fiji,Guadalcanal,Hobart,Melbourne,Noumea,Perth,"
     "Port Moresby,Sydney,Tahiti,Tarawa,Tongatapu"},
}};

}
